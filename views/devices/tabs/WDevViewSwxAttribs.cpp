#include "views/devices/tabs/WDevViewSwxAttribs.h"

#include "views/devices/tabs/AttribRows.h"
#include "views/devices/tabs/SwxConflict.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "swx",
                                  .headings = {kAttribHeading, "[RSnnn]Value"},
                                  .width = kAttribWidth,
                                  .editable = noSwxInConflict};

constexpr auto kRows = attribRows({.nameLabel = "[RSnnn]Switch Name",
                                   .nameTip = "tt.dev.swx.attr.name",
                                   .locationTip = "tt.dev.swx.attr.loc",
                                   .descriptionTip = "tt.dev.swx.attr.descr",
                                   .notesTip = "tt.dev.swx.attr.notes"});

} // namespace

WDevViewSwxAttribsTable::WDevViewSwxAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WDevViewSwxAttribs::WDevViewSwxAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_ATTRIBS, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxAttribsTable});
}
