#include "tests/db/DbTest.h"

#include "db/ZeqExchange.h"

namespace {

using DbValues = DbTest;

TEST_F(DbValues, ReadsAskForOneKeyOfOneRecord) {
    store.put("rx", 3, R"("name":"Desk 3","timeout":25)");
    store.put("cfgDefaults", 0, R"("timeout":7)");
    std::string name;
    unsigned timeout = 0;
    EXPECT_EQ(Db::db.readString("rx", 3, "name", name, errors), 0U);
    EXPECT_EQ(name, "Desk 3");
    EXPECT_EQ(Db::db.readUInt32("cfgDefaults", 0, "timeout", timeout, errors), 0U);
    EXPECT_EQ(timeout, 7U);
    EXPECT_EQ(
        store.requests(),
        (std::vector<std::string>{R"({"method":"get","query":{"index":3},"resource":"rx","select":["name"]})",
                                  R"({"method":"get","resource":"cfgDefaults","select":["timeout"]})"}));
}

TEST_F(DbValues, AnAbsentKeyKeepsTheTextAndEmptiesAnExtract) {
    store.put("rx", 3, R"("name":"Desk 3")");
    std::string value = "preset";
    EXPECT_EQ(Db::db.readString("rx", 3, "location", value, errors), 0U);
    EXPECT_EQ(value, "preset");
    const ZeqPtr record(json_loads(R"({"rows":[{"name":"Desk 3"}]})", 0, nullptr));
    EXPECT_EQ(Db::db.extractString(record.get(), "location", value), 1U);
    EXPECT_EQ(value, "");
}

TEST_F(DbValues, EnabledInAnyCaseWhenReadButExactlyWhenExtracted) {
    const struct {
        const char* stored;
        bool read, extracted;
        unsigned extractResult;
    } rows[] = {
        {R"("on":"enabled")", true, true, 0},    {R"("on":"Enabled")", true, false, 0},
        {R"("on":"ENABLED")", true, false, 0},   {R"("on":"disabled")", false, false, 0},
        {R"("on":"")", false, false, 0},         {R"("on":"enabled ")", false, false, 0},
        {R"("off":"enabled")", false, false, 1},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.stored);
        store.put("user", 1, r.stored);
        bool value = !r.read;
        EXPECT_EQ(Db::db.readEnableDisable("user", 1, "on", value, errors), 0U);
        EXPECT_EQ(value, r.read);
        const ZeqPtr record(json_loads(("{\"rows\":[{" + std::string(r.stored) + "}]}").c_str(), 0, nullptr));
        value = !r.extracted;
        EXPECT_EQ(Db::db.extractEnableDisable(record.get(), "on", value), r.extractResult);
        EXPECT_EQ(value, r.extracted);
    }
}

TEST_F(DbValues, AFailedReadLeavesTheValueAndSaysNothingAboutSilence) {
    store.hangUp();
    std::string text = "kept";
    unsigned number = 5;
    bool flag = true;
    EXPECT_EQ(Db::db.readString("rx", 1, "name", text, errors), 1U);
    EXPECT_EQ(Db::db.readUInt32("rx", 1, "name", number, errors), 1U);
    EXPECT_EQ(Db::db.readEnableDisable("rx", 1, "name", flag, errors), 1U);
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(number, 5U);
    EXPECT_TRUE(flag);
    EXPECT_TRUE(errors.empty());
    for (const auto& line : log.lines()) EXPECT_NE(line.level, 1) << line.message;
}

TEST_F(DbValues, WritesAndTheirRequests) {
    EXPECT_EQ(Db::db.writeString("rx", 3, "name", "Desk \"3\"", errors), 0U);
    EXPECT_EQ(Db::db.writeUInt32("systemGlobals", 0, "timeout", 4294967295U, errors), 0U);
    EXPECT_EQ(Db::db.writeEnableDisable("user", 2, "warn", false, errors), 0U);
    EXPECT_EQ(Db::db.requestDeviceReboot("tx", 9, errors), 0U);
    EXPECT_EQ(Db::db.deleteRecordByIndex("user", 0, errors), 0U);
    EXPECT_EQ(store.requests(),
              (std::vector<std::string>{
                  R"({"method":"set","params":{"index":3,"name":"Desk \"3\""},"resource":"rx"})",
                  R"({"method":"set","params":{"timeout":4294967295},"resource":"systemGlobals"})",
                  R"({"method":"set","params":{"index":2,"warn":"disabled"},"resource":"user"})",
                  R"({"method":"set","params":{"index":9,"reset":"cold_reboot"},"resource":"tx"})",
                  R"({"method":"delete","params":{"index":0},"resource":"user"})"}));
}

TEST_F(DbValues, AFailedWriteIsLoggedInItsOwnWords) {
    store.hangUp();
    EXPECT_EQ(Db::db.writeString("rx", 3, "name", "x", errors), 1U);
    EXPECT_EQ(log.messages(1).back(), "Cannot write string value to database.");
    EXPECT_EQ(log.lines().back().function, "writeString");
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbValues, ExchangesAreCounted) {
    store.put("rx", 1, R"("name":"a")");
    store.put("rx", 2, R"("name":"b")");
    const unsigned long before = zeqExchangeCount();
    std::string value;
    bool same = true;
    Db::db.readStringMerge("rx", {1, 2, 1}, "name", value, same, errors);
    Db::db.getEdidByName("none", nullptr, 0, errors);
    EXPECT_EQ(zeqExchangeCount() - before, 3U);
    EXPECT_EQ(store.requests().size(), 3U);
}

} // namespace
