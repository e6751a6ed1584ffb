#include "views/devices/tabs/WDevViewTxAttribs.h"

#include "views/devices/tabs/AttribRows.h"

namespace {

constexpr SettingsTableSpec kSpec{
    .resource = "tx", .headings = {kAttribHeading, "[RSnnn]Value"}, .width = kAttribWidth};

constexpr auto kRows = attribRows({.nameLabel = "[RSnnn]Transmitter Name",
                                   .nameTip = "tt.dev.tx.attr.name",
                                   .locationTip = "tt.dev.tx.attr.loc",
                                   .descriptionTip = "tt.dev.tx.attr.descr",
                                   .notesTip = "tt.dev.tx.attr.notes"});

} // namespace

WDevViewTxAttribsTable::WDevViewTxAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WDevViewTxAttribs::WDevViewTxAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_TX_ATTRIBS, {InfoMgr_InfoID::Transmitters}) {
    setTables({new WDevViewTxAttribsTable});
}
