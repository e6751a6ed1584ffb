#include "views/devices/tabs/WDevViewSwxAttribs.h"

#include "views/devices/tabs/AttribRows.h"
#include "views/devices/tabs/SwxConflict.h"

namespace {

constexpr SettingsTableSpec kSpec{
    .resource = "swx", .headings = {kAttribHeading, "[RSnnn]Value"}, .width = kAttribWidth};

constexpr auto kRows = attribRows({.nameLabel = "[RSnnn]Switch Name",
                                   .nameTip = "tt.dev.swx.attr.name",
                                   .locationTip = "tt.dev.swx.attr.loc",
                                   .descriptionTip = "tt.dev.swx.attr.descr",
                                   .notesTip = "tt.dev.swx.attr.notes"});

} // namespace

WDevViewSwxAttribsTable::WDevViewSwxAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WDevViewSwxAttribsTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    const bool editable = !anySwxInConflict(indexes);
    for (std::size_t row = 0; row < kRows.size(); ++row) setRowEnabled(row, editable);
}

WDevViewSwxAttribs::WDevViewSwxAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_ATTRIBS, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxAttribsTable});
}
