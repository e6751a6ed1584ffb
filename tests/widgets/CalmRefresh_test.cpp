// What a refresh costs the browser. Needs the inside of our own toolkit; an installed
// one offers no such look.

#if __has_include("test/TestSession.h")

#include "tests/widgets/WidgetTest.h"

#include "test/TestSession.h"
#include "widgets/LookupTexts.h"
#include "widgets/Selectors.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WSettingsTable.h"
#include "widgets/WTargetAny.h"
#include "widgets/WTextAreaZeq.h"
#include "widgets/WTextZeq.h"
#include "widgets/WTxIcon.h"
#include "widgets/WUsr.h"

namespace {

constexpr SettingsTableSpec kEverything{.resource = "rx"};
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Name", .make = makeSettingsField<WLineEditZeq>, .key = "name"},
    {.label = "[RSnnn]Notes", .make = makeSettingsField<WTextAreaZeq>, .key = "notes"},
    {.label = "[RSnnn]Timeout", .make = makeSettingsField<WLineEditUInt32Zeq>, .key = "timeout"},
    {.label = "[RSnnn]Enabled", .make = makeSettingsField<WEnableDisable>, .key = "audioControl"},
    {.label = "[RSnnn]USB Mode", .make = makeSettingsField<WUsbMode>, .key = "usbMode"},
    {.label = "[RSnnn]User", .make = makeSettingsField<WUsr>, .key = "autoLoginUserIndex"},
    {.label = "[RSnnn]Target", .make = makeSettingsField<WTargetAny>},
    {.label = "[RSnnn]Icon", .make = makeSettingsField<WTxIcon>, .key = "iconIndex"},
    {.label = "[RSnnn]EID", .make = makeSettingsField<WTextZeq>, .key = "eid"},
    {.label = "[RSnnn]Keyboard Layout", .make = makeSettingsField<WTextRxKeyboardLayout>},
};

class CalmRefresh : public WidgetTest {
protected:
    CalmRefresh() {
        store.put("user", 1, R"("name":"anna")");
        store.put("user", 2, R"("name":"op9")");
        store.put("tx", 1, R"("eid":"TXEID0-000001","name":"CAD 1")");
        store.put("rx", 1, members("Desk 1"));
        store.put("rx", 2, members("Desk 2"));
    }

    static std::string members(const char* name) {
        return R"("name":")" + std::string(name) +
               R"(","notes":"a\nb","timeout":25,"audioControl":"enabled","usbMode":"all_devices","iconIndex":7,)"
               R"("autoLoginUserIndex":2,"autoConnectTxEid":"TXEID0-000001","eid":"RXEID0-000001","keyboardLayout":"us")";
    }

    /// What the browser is sent for a refresh of these records.
    std::string sentBy(const Db::Indexes& indexes, bool force) {
        mTable.readFromDatabase(indexes, force);
        return Wt::Impl::TestSession::current().takeOperations();
    }

    WSettingsTable mTable{kEverything, kRows, page()};
};

TEST_F(CalmRefresh, NothingChangedSendsNothing) {
    EXPECT_NE(sentBy({1}, false), "");
    EXPECT_EQ(sentBy({1}, false), "");
    EXPECT_EQ(sentBy({1}, true), "") << "boxes whose choices are read anew, too";
    EXPECT_NE(sentBy({1, 2}, true), "");
    EXPECT_EQ(sentBy({1, 2}, true), "");
}

TEST_F(CalmRefresh, OneChangedFieldSendsThatFieldAlone) {
    sentBy({1}, false);
    store.put("rx", 1, members("Renamed"));
    const std::string sent = sentBy({1}, false);
    EXPECT_NE(sent.find("Renamed"), std::string::npos) << sent;
    EXPECT_LT(sent.size(), 60U) << sent;
}

} // namespace

#endif
