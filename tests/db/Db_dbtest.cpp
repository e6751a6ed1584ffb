// Against a real database service: what it refuses and what becomes of it when it goes away.

#include "tests/db/DbTest.h"
#include "tests/platform/support/ZeqdProcess.h"

#include "db/ZeqExchange.h"

namespace {

class DbOnZeqd : public testing::Test {
protected:
    ZeqdProcess zeqd;
    CleanLogins clean;
    AppSession session;
    LogCapture log;
    Db::Errors errors;
};

TEST_F(DbOnZeqd, AWrittenValueIsReadBackAndChangesOnlyItsKind) {
    unsigned rx = 0;
    unsigned tx = 0;
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, rx));
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Transmitters, tx));
    EXPECT_FALSE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, rx));
    EXPECT_EQ(Db::db.writeString("rx", 1, "name", "Desk 100 %s", errors), 0U);
    std::string name;
    EXPECT_EQ(Db::db.readString("rx", 1, "name", name, errors), 0U);
    EXPECT_EQ(name, "Desk 100 %s");
    EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, rx));
    EXPECT_FALSE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Transmitters, tx));
}

TEST_F(DbOnZeqd, ARefusedWriteChangesNothingAndSaysWhy) {
    std::string before;
    Db::db.readString("rx", 1, "name", before, errors);
    EXPECT_EQ(Db::db.writeString("rx", 1, "name", std::string(41, 'x'), errors), 1U);
    EXPECT_EQ(Db::db.writeString("rx", 4711, "name", "x", errors), 1U);
    EXPECT_EQ(Db::db.writeString("rx", 1, "no such key", "x", errors), 1U);
    EXPECT_EQ(errors.size(), 3U);
    std::string after;
    EXPECT_EQ(Db::db.readString("rx", 1, "name", after, errors), 0U);
    EXPECT_EQ(after, before);
}

TEST_F(DbOnZeqd, EveryLookupOfADemoDeviceAnswers) {
    std::string text;
    unsigned swx = 0;
    unsigned port = 0;
    EXPECT_EQ(Db::db.getRxOverallStatus(1, text, errors), 0U);
    EXPECT_EQ(text.find("??"), std::string::npos) << text;
    EXPECT_EQ(Db::db.getTxOverallStatus(1, text, errors), 0U);
    EXPECT_EQ(Db::db.getSwxOverallStatus(1, text, errors), 0U);
    EXPECT_EQ(Db::db.getSwxIndexAndPortIndexFromRxIndex(1, swx, port, errors), 0U);
    EXPECT_NE(port, 0U);
    EXPECT_EQ(Db::db.getSwxNameFromRxIndex(1, text, errors), 0U);
    EXPECT_FALSE(text.empty());
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbOnZeqd, AServiceThatGoesAwayIsAChangeAndComesBack) {
    unsigned lastChange = 0;
    Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, lastChange);
    ASSERT_FALSE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, lastChange));
    const unsigned known = lastChange;
    zeqd.kill();
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Db::db.newDataIsAvailable(InfoMgr_InfoID::Receivers, lastChange));
        EXPECT_EQ(lastChange, known);
    }
    std::size_t complaints = 0;
    for (const std::string& line : log.messages(1)) complaints += line == "Failed to get ZEQ client.";
    EXPECT_LE(complaints, 1U) << "once in the life of the process";
    zeqd.start();
    std::string name;
    EXPECT_EQ(Db::db.readString("rx", 1, "name", name, errors), 0U)
        << "the session opens a new client by itself";
    EXPECT_TRUE(errors.empty());
}

} // namespace
