#include "views/devices/tabs/WDevViewRxAttribs.h"

#include "views/devices/tabs/AttribRows.h"

namespace {

constexpr SettingsTableSpec kSpec{
    .resource = "rx", .headings = {kAttribHeading, "[RSnnn]Value"}, .width = kAttribWidth};

constexpr auto kRows = attribRows({.nameLabel = "[RSnnn]Receiver Name",
                                   .nameTip = "tt.dev.rx.attr.name",
                                   .locationTip = "tt.dev.rx.attr.loc",
                                   .descriptionTip = "tt.dev.rx.attr.descr",
                                   .notesTip = "tt.dev.rx.attr.notes"});

} // namespace

WDevViewRxAttribsTable::WDevViewRxAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WDevViewRxAttribs::WDevViewRxAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_RX_ATTRIBS, {InfoMgr_InfoID::Receivers}) {
    setTables({new WDevViewRxAttribsTable});
}
