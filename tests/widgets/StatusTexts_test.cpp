#include "tests/widgets/WidgetTest.h"

#include "widgets/LookupTexts.h"
#include "widgets/ValueTexts.h"
#include "widgets/WMgrCommStatus.h"
#include "widgets/WNtpTime.h"
#include "widgets/WVideoResolution.h"

#include <Wt/WString>

namespace {

std::string tr(const char* key) {
    return Wt::WString::tr(key).toUTF8();
}

class StatusTexts : public WidgetTest {
protected:
    std::string ntp(const char* stored) {
        store.put("swx", 1, stored);
        WNtpStatus status("swx", "ntpStatus", true, page());
        status.readFromDatabase({1}, errors, false);
        return status.text().toUTF8();
    }
};

TEST_F(StatusTexts, WordsForValues) {
    const struct {
        const char* stored;
        const char* key;
    } rows[] = {
        {R"("ntpStatus":"unknown")", "[RSnnn]Initializing"},
        {R"("ntpStatus":"success")", "[RSnnn]Successful"},
        {R"("ntpStatus":"server_unresponsive")", "[RSnnn]Server unresponsive"},
        {R"("ntpStatus":"Success")", "[RSnnn]Unknown"},
        {R"("ntpStatus":"")", "[RSnnn]Unknown"},
    };
    for (const auto& r : rows) EXPECT_EQ(ntp(r.stored), tr(r.key)) << r.stored;
    store.put("swx", 1, R"("cascadeRole":"backup","mode":"slave")");
    store.put("swx", 2, R"("cascadeRole":"odd","mode":"master")");
    WTextCascadeRole role("swx", "cascadeRole", true, page());
    WTextCascadeMode mode("swx", "mode", true, page());
    role.readFromDatabase({2}, errors, false);
    mode.readFromDatabase({1}, errors, false);
    EXPECT_EQ(role.text().toUTF8(), tr("swx.deviceDetails.cascadeRole.backup")) << "and every other string";
    EXPECT_EQ(mode.text().toUTF8(), tr("[RSnnn]Switch is a cascade slave"));
    mode.readFromDatabase({1, 2}, errors, false);
    EXPECT_EQ(mode.text().toUTF8(), "");
}

TEST_F(StatusTexts, TimeOfDayInUtc) {
    const struct {
        const char* seconds;
        const char* text;
    } rows[] = {{"0", "1970-01-01 00:00:00 UTC"},
                {"1709802300", "2024-03-07 09:05:00 UTC"},
                {"4294967295", "2106-02-07 06:28:15 UTC"}};
    WNtpTime time("r", "n", true, page());
    for (const auto& r : rows) {
        store.put("r", 6, "\"n\":" + std::string(r.seconds));
        time.readFromDatabase({6}, errors, false);
        EXPECT_EQ(time.text().toUTF8(), r.text);
    }
}

TEST_F(StatusTexts, ResolutionOfRowsThatAgree) {
    const ZeqPtr rows(json_loads(R"({"rows":[{"index":1,"h":1920,"v":1080},{"index":2,"h":1920,"v":1080},
                                             {"index":3,"h":1920,"v":1200}]})",
                                 0, nullptr));
    WVideoResolution resolution("rx", "h", "v", true, page());
    const struct {
        Db::Indexes indexes;
        const char* text;
    } cases[] = {
        {{1}, "1920 x 1080"}, {{1, 2}, "1920 x 1080"}, {{1, 3}, ""}, {{1, 9}, ""}, {{2, 1}, "1920 x 1080"}};
    for (const auto& c : cases) {
        resolution.getZeqParam(rows.get(), c.indexes, false);
        EXPECT_EQ(resolution.text().toUTF8(), c.text) << testing::PrintToString(c.indexes);
    }
    EXPECT_EQ(resolution.verticalResolution(), 1080U);
}

TEST_F(StatusTexts, LookedUpTextsOfSeveralDevices) {
    store.put(
        "rx", 1,
        R"("eid":"A","keyboardLayout":"us","status":"offline","upgradeStatus":"idle","usage":"usable")");
    store.put("rx", 2,
              R"("eid":"B","keyboardLayout":"us","status":"ready","upgradeStatus":"idle","usage":"usable")");
    store.put(
        "rx", 3,
        R"("eid":"C","keyboardLayout":"de","status":"offline","upgradeStatus":"idle","usage":"usable")");
    store.put("rx", 4, R"("eid":"D")");
    store.put("tx", 1, R"("status":"offline","upgradeStatus":"idle","usage":"usable")");
    store.put("tx", 2, R"("status":"ready","upgradeStatus":"idle","usage":"usable")");
    for (unsigned i = 1; i <= 50; ++i) store.put("portStatus", i, R"("swxIndex":0,"ports":[])");
    store.put("portStatus", 1,
              R"("swxIndex":1,"ports":[{"portIndex":17,"eid":"A"},{"portIndex":18,"eid":"C"}])");
    store.put("portStatus", 2, R"("swxIndex":2,"ports":[{"portIndex":17,"eid":"B"}])");

    WTextRxKeyboardLayout layout(page());
    WTextRxSwxPort port(page());
    WTextRxSwxName name(page());
    WTextRxStatus rxStatus(page());
    WTextTxStatus txStatus(page());
    const struct {
        WLookupText* text;
        Db::Indexes indexes;
        unsigned result;
        std::string shown;
    } rows[] = {
        {&layout, {1, 2}, 0, tr("keyboardLayout.text.us")},
        {&layout, {1, 3}, 0, ""},
        {&layout, {99}, 0, tr("keyboardLayout.text.unknown")},
        {&layout, {}, 0, ""},
        {&port, {1, 2}, 0, "17"}, // the Switch is not compared
        {&port, {1, 3}, 0, ""},
        {&port, {99}, 1, ""},
        {&port, {4}, 0, ""}, // on no port
        {&port, {1, 4}, 0, ""},
        {&name, {1}, 0, "Main room"},
        {&name, {4}, 0, ""},
        {&rxStatus, {1, 2}, 0, tr("[RSnnn]Offline")}, // of the first record
        {&rxStatus, {99, 1}, 1, ""},
        {&rxStatus, {}, 0, ""},
        {&txStatus, {1, 2}, 0, ""},
        {&txStatus, {2}, 0, tr("[RSnnn]Ready")},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(r.text->readFromDatabase(r.indexes, errors), r.result);
        EXPECT_EQ(r.text->text().toUTF8(), r.shown) << testing::PrintToString(r.indexes);
    }
}

TEST_F(StatusTexts, ConnectionsToAManager) {
    WMgrCommStatus status(WMgrCommStatus::MgrInstance::Primary, page());
    status.readFromDatabase();
    EXPECT_EQ(status.text().toUTF8(), tr("[RSnnn]Down"));
    EXPECT_EQ(store.requests().size(), 1U) << "not managed: the states are not asked for";
    const struct {
        const char *client, *server, *key;
    } rows[] = {{"up", "up", "[RSnnn]Normal"},
                {"down", "down", "[RSnnn]Down"},
                {"down", "up", "[RSnnn]Server up, client down"},
                {"up", "Up", "[RSnnn]Client up, server down"}};
    for (const auto& r : rows) {
        store.put("systemGlobals", 0,
                  R"("managedSetting":"verified","commStatusRestClientPrimary":")" + std::string(r.client) +
                      R"(","commStatusRestServerPrimary":")" + r.server + "\"");
        status.readFromDatabase();
        EXPECT_EQ(status.text().toUTF8(), tr(r.key)) << r.client << " " << r.server;
    }
}

} // namespace
