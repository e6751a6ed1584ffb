#include "views/users/tabs/WUsrViewOsdFx.h"

#include "db/Convert.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "platform/client/ZeqReq.h"
#include "views/users/model/TxPermissions.h"
#include "widgets/RecordChoices.h"

namespace {

constexpr const char* kShortCuts = "user/keySettings/osdShortCuts";
constexpr const char* kTakesTarget = "connect_to_target_x";

constexpr SettingsTableSpec kSpec{.resource = kShortCuts,
                                  .headings = {"[RSnnn]Key", "[RSnnn]Action", "[RSnnn]Target"}};

constexpr SettingsRow actionOf(const char* key, const char* tooltip) {
    return {.label = key,
            .make = makeSettingsField<WOsdHotkeyFunc>,
            .key = "action",
            .tooltip = tooltip,
            .byOwner = true};
}
constexpr SettingsRow targetOf(const char* tooltip) {
    return {.make = makeSettingsField<WTarget>,
            .key = "txEID",
            .tooltip = tooltip,
            .enabledWhen = {.key = "action", .is = kTakesTarget},
            .column = 2,
            .byOwner = true};
}

// clang-format off
constexpr SettingsRow kRows[] = {
    actionOf("[RSnnn]F1", "tt.usr.osd.fx.f1.action"), targetOf("tt.usr.osd.fx.f1.target"),
    actionOf("[RSnnn]F2", "tt.usr.osd.fx.f2.action"), targetOf("tt.usr.osd.fx.f2.target"),
    actionOf("[RSnnn]F3", "tt.usr.osd.fx.f3.action"), targetOf("tt.usr.osd.fx.f3.target"),
    actionOf("[RSnnn]F4", "tt.usr.osd.fx.f4.action"), targetOf("tt.usr.osd.fx.f4.target"),
    actionOf("[RSnnn]F5", "tt.usr.osd.fx.f5.action"), targetOf("tt.usr.osd.fx.f5.target"),
    actionOf("[RSnnn]F6", "tt.usr.osd.fx.f6.action"), targetOf("tt.usr.osd.fx.f6.target"),
    actionOf("[RSnnn]F7", "tt.usr.osd.fx.f7.action"), targetOf("tt.usr.osd.fx.f7.target"),
    actionOf("[RSnnn]F8", "tt.usr.osd.fx.f8.action"), targetOf("tt.usr.osd.fx.f8.target"),
    actionOf("[RSnnn]F9", "tt.usr.osd.fx.f9.action"), targetOf("tt.usr.osd.fx.f9.target"),
    actionOf("[RSnnn]F10", "tt.usr.osd.fx.f10.action"), targetOf("tt.usr.osd.fx.f10.target"),
    actionOf("[RSnnn]F11", "tt.usr.osd.fx.f11.action"), targetOf("tt.usr.osd.fx.f11.target"),
    actionOf("[RSnnn]F12", "tt.usr.osd.fx.f12.action"), targetOf("tt.usr.osd.fx.f12.target"),
};
// clang-format on
static_assert(std::size(kRows) == 2 * WUsrViewOsdFxTable::kKeys);

constexpr unsigned kFirstKey = static_cast<unsigned>(Info_FunctionKey::F1);

const char* wordOf(std::size_t key) {
    return Convert_functionKeyEnumToZeqString(static_cast<Info_FunctionKey>(kFirstKey + key));
}

} // namespace

WUsrViewOsdFxTable::WUsrViewOsdFxTable(Wt::WContainerWidget* parent) : WSettingsTable(kSpec, kRows, parent) {}

WUsrViewOsdFxTable::Slots WUsrViewOsdFxTable::slotsOf(const json_t* shortCuts) {
    Slots slots;
    for (const ZeqRow entry : ZeqRows(shortCuts)) {
        if (!entry.has("functionKey") || !entry.has("action") || !entry.has("txEID")) continue;
        // "none" and an unknown word are below F1, and wrap to beyond the last key.
        const unsigned number =
            static_cast<unsigned>(Convert_functionKeyStringToEnum(entry.text("functionKey").c_str()));
        const std::size_t key = number - kFirstKey;
        if (key >= kKeys) continue;
        slots[key] = {
            static_cast<unsigned>(Convert_osdCommonActionStringToEnum(entry.text("action").c_str())),
            entry.text("txEID").substr(0, kEidLength)};
    }
    return slots;
}

WUsrViewOsdFxTable::Slots WUsrViewOsdFxTable::readSlots(const Indexes& users) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "user", __func__);
    if (users.empty() || !exchange.ready()) return {};
    for (const char* key : {"index", "keySettings"}) ZeqReqUtil_setSelect(exchange.request(), key);
    for (const unsigned user : users) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", user);
    if (exchange.sendQuietly() != 0) return {};
    Slots merged;
    bool first = true;
    for (const ZeqRow row : ZeqRows(exchange.response())) {
        const Slots own =
            slotsOf(json_object_get(json_object_get(row.json(), "keySettings"), "osdShortCuts"));
        if (first) merged = own;
        first = false;
        for (std::size_t key = 0; key < kKeys; ++key) {
            if (merged[key].action != own[key].action) merged[key].action = 0;
            if (merged[key].eid != own[key].eid) merged[key].eid.clear();
        }
    }
    return merged;
}

void WUsrViewOsdFxTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force); // takes the marks that do not stay
    // A failed read leaves every key blank: what is shown of other users is never written to these.
    mSlots = readSlots(indexes);
    TxPermissions access;
    access.populate(indexes);
    const bool all = access.getEnableAll() == TxPermissions::ENABLE_ALL_YES;
    mTargets = all ? access.getAllTargetItems() : access.getAllowedTargetItems();
    for (std::size_t key = 0; key < kKeys; ++key) {
        WOsdHotkeyFunc* shown = action(key);
        if (target(key)->hasFocus() || shown->hasChangedContent()) continue;
        if (mSlots[key].action == 0)
            shown->showConflict();
        else
            shown->showValue(Convert_osdCommonActionEnumToZeqString(
                static_cast<Info_OsdCommonAction>(mSlots[key].action)));
    }
    showTargets();
    followChoices();
}

void WUsrViewOsdFxTable::showTargets() {
    for (std::size_t key = 0; key < kKeys; ++key) {
        WTarget* shown = target(key);
        if (action(key)->selection() != kTakesTarget) {
            shown->populateChoices({});
            shown->clearContentChanged();
        } else if (!shown->hasFocus() && !shown->hasChangedContent()) {
            shown->populateChoices(mTargets);
            shown->setCurrentChoiceByEid(mSlots[key].eid);
        }
    }
}

void WUsrViewOsdFxTable::contentChangedHandler() {
    showTargets();
    WSettingsTable::contentChangedHandler();
}

unsigned WUsrViewOsdFxTable::writeToDatabase(const Indexes& indexes, Errors& errors) {
    unsigned result = 0;
    for (const unsigned user : indexes) {
        ZeqExchange exchange(ZeqPtr(ZeqReq_userNewUpdateReq(user)), __func__);
        ZeqPtr settings(ZeqObj_new());
        json_t* shortCuts = ZeqObj_newArray();
        if (!exchange.ready() || json_object_set_new(settings.get(), "osdShortCuts", shortCuts) != 0)
            return 1;
        for (std::size_t key = 0; key < kKeys; ++key) {
            json_t* entry = ZeqObj_new();
            ZeqObj_setString(entry, "functionKey", wordOf(key));
            if (!action(key)->isShowingConflict()) {
                ZeqObj_setString(entry, "action", action(key)->selection().c_str());
                target(key)->setZeqParam(entry);
            }
            if (ZeqObj_arrayAppendObject(shortCuts, entry) != 0) return 1;
        }
        if (ZeqReqUtil_setObjectParam(exchange.request(), "keySettings", settings.release()) != 0) return 1;
        result |= exchange.send(errors);
        if (!exchange.response()) return 1;
    }
    return result |
           WSettingsTable::writeToDatabase(indexes, errors); // which has no field of its own, but the marks
}

WUsrViewOsdFx::WUsrViewOsdFx(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_USR_OSD_FX,
                   {InfoMgr_InfoID::Users, InfoMgr_InfoID::Transmitters, InfoMgr_InfoID::Targets}) {
    setTables({new WUsrViewOsdFxTable});
}
