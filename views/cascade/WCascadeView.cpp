#include "views/cascade/WCascadeView.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/InfoTables.h"
#include "frame/ActionColumn.h"
#include "frame/RowsInOrder.h"
#include "frame/ShowBox.h"
#include "views/cascade/CascadeRequest.h"
#include "views/cascade/NamedSwx.h"
#include "views/cascade/WCascadeViewDetails.h"
#include "views/cascade/WLinkPeerDialog.h"

#include <optional>

namespace {

using View = WCascadeView;

constexpr ActionRow<View, CascadeAction> kActions[] = {
    {CascadeAction::Link, "cascade.label.link", "cascade.buttonLabel.link", "cascade.buttonInfo.link",
     &View::linkPeerButtonClickedHandler},
    {CascadeAction::Unlink, "cascade.label.unlink", "cascade.buttonLabel.unlink", "cascade.buttonInfo.unlink",
     &View::unlinkPeerButtonClickedHandler},
    {CascadeAction::RoleSwitch, "cascade.label.roleSwitch", "cascade.buttonLabel.roleSwitch",
     "cascade.buttonInfo.roleSwitch", &View::roleSwitchButtonClickedHandler},
    {CascadeAction::Promote, "cascade.label.promote", "cascade.buttonLabel.promote",
     "cascade.buttonInfo.promote", &View::promoteButtonClickedHandler},
};
static_assert(rowsInOrder(kActions));

constexpr BoxRow kConfirmRoleSwitch = {
    WMsgBox::Warning, "cascade.confirm.force.role.switch.title", {"[RSnnn]Proceed", "[RSnnn]Cancel"}};

bool standsByReady(unsigned index) {
    if (index == 0) return false;
    Info_SwxStatus status{};
    Info_DeviceUpgradeStatus upgrade{};
    Info_SwxUsage usage{};
    std::string role;
    Db::Errors dropped;
    return Db::db.getSwxStatus(index, status, upgrade, usage, dropped) == 0 &&
           status == Info_SwxStatus::Ready &&
           Db::db.readString("swx", index, "cascadeRole", role, dropped) == 0 && role == "backup";
}

std::optional<CascadeState> readState() {
    const std::optional<unsigned> peer = namedSwx("peerControllerSwitchEid");
    std::string controller;
    Db::Errors dropped;
    if (!peer || Db::db.readString("systemGlobals", 0, "cascadeController", controller, dropped) != 0)
        return std::nullopt;
    CascadeState state{.peer = *peer != 0, .peerControls = controller == "peer"};
    unsigned candidate = *peer;
    if (state.peerControls)
        if (const unsigned master = namedSwx("masterSwitchEid").value_or(0)) candidate = master;
    state.standbyReady = standsByReady(candidate);
    return state;
}

} // namespace

WCascadeView::WCascadeView(Wt::WContainerWidget* parent)
    : PageFrame(parent), mDetails(new WCascadeViewDetails) {
    auto* column = new ActionColumn;
    column->addActions(this, kActions);
    place(column,
          {{.widget = mDetails, .height = WCascadeViewDetails::kHeightPx, .minHeight = 0, .stretch = 1}});
}

void WCascadeView::readFromDatabase() {
    HeldRecords held;
    const HeldRecords::Use use(held);
    mDetails->readFromDatabase();
    const std::optional<CascadeState> state = readState();
    if (!state) return;
    for (const auto& row : kActions) enable(row.value, cascadeAllows(*state, row.value));
}

void WCascadeView::contentChangedHandler() {
    for (const auto& row : kActions) enable(row.value, false);
}

void WCascadeView::linkPeerButtonClickedHandler() {
    WLinkPeerDialog dialog;
    dialog.exec();
    if (dialog.results().failed() > 0) showFailures(dialog.results());
    enable(CascadeAction::Link, false);
    readFromDatabase();
}

void WCascadeView::unlinkPeerButtonClickedHandler() {
    enable(CascadeAction::Unlink, false);
    enable(CascadeAction::RoleSwitch, false);
    changeCascade("unlink_peer", __func__);
}

void WCascadeView::roleSwitchButtonClickedHandler() {
    enable(CascadeAction::RoleSwitch, false);
    if (showBox(kConfirmRoleSwitch, tr("cascade.confirm.force.role.switch.text")) != 1)
        return enable(CascadeAction::RoleSwitch, true);
    changeCascade("force_role_switch", __func__);
}

void WCascadeView::promoteButtonClickedHandler() {
    enable(CascadeAction::Promote, false);
    changeCascade("promote_peer", __func__);
}

void WCascadeView::enable(CascadeAction action, bool enabled) {
    actions()->enable(static_cast<std::size_t>(action), enabled);
}

WNavAccordionStdCell* WCascadeView::actionCell(CascadeAction action) const {
    return actions()->cell(static_cast<std::size_t>(action));
}
