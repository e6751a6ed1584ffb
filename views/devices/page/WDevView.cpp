#include "views/devices/page/WDevView.h"

#include "frame/ActionColumn.h"
#include "frame/RowsInOrder.h"
#include "views/devices/list/WDevViewList.h"
#include "views/devices/page/WDevViewDetails.h"

namespace {

// Pixels.
constexpr int kListHeight = 180;
constexpr int kListMinHeight = 115;
constexpr int kDetailsHeight = 555;

// clang-format off
constexpr ActionRow<WDevView, DeviceAction> kActions[] = {
    {DeviceAction::RestoreFull, "[RSnnn]Restore Full Defaults", "[RSnnn]Restore Full",
     "[RSnnn]Restore device settings to default for one or more selected devices.",
     &WDevView::restoreSettingsActionButtonClicked},
    {DeviceAction::RestorePartial, "[RSnnn]Restore Partial Defaults", "[RSnnn]Restore Partial",
     "[RSnnn]Restore Switches to factory default settings, excluding the network settings.",
     &WDevView::partialRestoreSettingsActionButtonClicked},
    {DeviceAction::Update, "[RSnnn]Update Firmware", "[RSnnn]Update",
     "[RSnnn]Update firmware on one or more selected devices of the same type.",
     &WDevView::updateFirmwareActionButtonClicked},
    {DeviceAction::Reboot, "[RSnnn]Reboot Device", "[RSnnn]Reboot", "[RSnnn]Reboot one or more selected devices.",
     &WDevView::rebootDevActionButtonClicked},
    {DeviceAction::Remove, "[RSnnn]Remove Devices", "[RSnnn]Remove",
     "[RSnnn]Remove the selected device(s) from the system.", &WDevView::removeDevicesActionButtonClicked},
    {.value = DeviceAction::RemoveOffline, .title = "[RSnnn]Remove Offline Devices",
     .button = "[RSnnn]Remove Offline",
     .hint = "[RSnnn]Automatically remove all devices from the system that have an offline status.",
     .handler = &WDevView::removeOfflineDevicesActionButtonClicked, .enabledAtFirst = true},
    // Flash disturbs no edit: it stays as it is, on purpose.
    {.value = DeviceAction::Flash, .title = "[RSnnn]Flash Display", .button = "[RSnnn]Flash",
     .hint = "[RSnnn]Flash the display backlight of the device to help locate it.",
     .handler = &WDevView::flashDisplayActionButtonClicked, .whileEditing = WhileEditing::LeftAlone,
     .enabledAtFirst = true},
};
// clang-format on
static_assert(rowsInOrder(kActions) && std::size(kActions) == kDeviceActionCount);

} // namespace

WDevView::WDevView(Wt::WContainerWidget* parent)
    : ListPage(parent, {InfoMgr_InfoID::Transmitters, InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Switches,
                        InfoMgr_InfoID::Connections, InfoMgr_InfoID::UserSessions}),
      mList(new WDevViewList(tr("[RSnnn]Devices"))) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    mDetails = new WDevViewDetails(tr("[RSnnn]Device Details"), kDetailsHeight, this, mList);
    place(actions, {{mList, kListHeight, kListMinHeight, 0, kListShare}, {.widget = mDetails, .stretch = 1}});
    giveRoomWhenFolded(*mDetails, *mList);
    setDetails(mDetails);
    setList(
        *mList, [this] { mList->readFromDatabase(); }, [this] { devListSelectionChangedHandler(); });
    setWords({nullptr, {WDevViewList::Name, WDevViewList::Type, WDevViewList::Eid}});
    selection().setRemember([this] { return rememberSelectionByKind(); });
}

WNavAccordionStdCell* WDevView::actionCell(DeviceAction action) const {
    return actions()->cell(static_cast<std::size_t>(action));
}

const char* WDevView::countedKey() const {
    Info_DeviceType type{};
    Info_DetailedDeviceType detail{};
    mList->devTypeSelected(type, detail);
    switch (type) {
    case Info_DeviceType::Receiver:
        return "devices.count.rx";
    case Info_DeviceType::Transmitter:
        return "devices.count.tx";
    case Info_DeviceType::Switch:
        return "devices.count.swx";
    default:
        return "devices.count";
    }
}

void WDevView::devListSelectionChangedHandler() {
    readFromDatabase(true, false);
}

void WDevView::detailsTabChangedHandler() {
    mDetails->readFromDatabase(true, chosenRecords(), false);
}

bool WDevView::listIsDue() const {
    return !mList->isComplete();
}

KeptSelection::Job WDevView::rememberSelectionByKind() {
    std::vector<std::vector<unsigned>> selected;
    for (const DeviceKind& kind : kDeviceKinds) mList->getZeqIndexVectByDev(kind, selected.emplace_back());
    return [this, selected] {
        for (std::size_t i = 0; i < selected.size(); ++i)
            mList->table()->setSelectedFilteredZeqIndexes(selected[i], mList,
                                                          deviceFilterOf(kDeviceKinds[i].type));
    };
}

void WDevView::showSelection(bool forceDetails) {
    DeviceSelection selected;
    selected.any = mList->numSelected() > 0;
    selected.conflict = mList->selectionContainsConflictedSwx();
    mList->devTypeSelected(selected.type, selected.detail);
    const DeviceSelectionRule& rule = ruleOf(selected);
    for (int i = 0; i < kDeviceActionCount; ++i)
        actions()->enable(static_cast<std::size_t>(i), enables(rule, DeviceAction(i)),
                          selected.any ? "devices.needs.other" : nullptr);

    mDetails->selectTab(rule.page);
    if (rule.page == DevDetailsPage::Empty) return;
    std::vector<unsigned> indexes; // kind by kind
    for (const DeviceKind& kind : kDeviceKinds) {
        if (kind.type == selected.type) mList->getZeqIndexVectByDev(kind, indexes);
    }
    mDetails->readFromDatabase(forceDetails, indexes, false);
}
