#include "views/settings/tabs/WSysSettingsViewEnabledEventList.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "views/settings/tabs/AlertSwitches.h"

#include <string_view>

namespace {

constexpr const char* kResource = "alertLogControl";
// What remote access does raises its alerts whatever is chosen here: on purpose neither listed nor written.
constexpr std::string_view kUnlisted = "enableAlertRap";

constexpr MoverButton kButtons[] = {
    {Move::AddAll, "[RSnnn]Enable all (right arrow)"},
    {Move::Add, "[RSnnn]Enable (right arrow)"},
    {Move::Remove, "[RSnnn](left arrow) Disable"},
    {Move::RemoveAll, "[RSnnn](left arrow) Disable all"},
};

MoverList* newList(const char* header) {
    return new MoverList({.header = header, .height = 155});
}

} // namespace

WSysSettingsViewEnabledEventList::WSysSettingsViewEnabledEventList(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent) {
    for (const char* key : kAlertSwitches) {
        if (std::string_view(key).find(kUnlisted) != std::string_view::npos) continue;
        mEvents.push_back({key, tr(std::string("SystemSettings.Events.") + key).toUTF8()});
    }
    mMover = new TwoListMover(*this, newList("[RSnnn]Disabled Events"), newList("[RSnnn]Enabled Events"),
                              kButtons, 0, this);
}

void WSysSettingsViewEnabledEventList::readFromDatabase(bool unconditional) {
    if (mMover->hasSelection() || (mUserHasChangedContent && !unconditional)) return;
    std::vector<std::string> errors;
    std::vector<Event> read = mEvents;
    for (Event& event :
         read) // of what is unknown nothing is shown: a save would switch off what looks disabled
        if (Db::db.readEnableDisable(kResource, 0, event.key, event.enabled, errors) != 0) return;
    mEvents = std::move(read);
    mMover->refresh();
    mUserHasChangedContent = false;
}

unsigned WSysSettingsViewEnabledEventList::writeToDatabase(std::vector<std::string>& errors) {
    if (!mUserHasChangedContent) return 0;
    ZeqExchange exchange = ZeqExchange::setRecord(kResource, 0, __func__);
    if (!exchange.ready()) return 1;
    for (const Event& event : mEvents)
        ZeqObj_setString(exchange.params(), event.key, event.enabled ? "enabled" : "disabled");
    exchange.send(errors);
    if (!exchange.response()) return 1;
    mUserHasChangedContent = false;
    return 0;
}

void WSysSettingsViewEnabledEventList::move(Move move, const std::vector<unsigned>& indexes) {
    mUserHasChangedContent = true;
    if (move == Move::AddAll || move == Move::RemoveAll)
        for (Event& event : mEvents) event.enabled = move == Move::AddAll;
    for (const unsigned index : indexes) mEvents[index - 1].enabled = move == Move::Add;
}

void WSysSettingsViewEnabledEventList::show(MoverList& left, MoverList& right) {
    std::vector<MoverItem> items[2];
    for (std::size_t i = 0; i < mEvents.size(); ++i)
        items[mEvents[i].enabled].push_back({static_cast<unsigned>(i + 1), mEvents[i].text});
    left.setItems(items[false]);
    right.setItems(items[true]);
}
