// A damaged database: what can be read goes on, and nobody gets in who did not before.
#include "platform/service/OpenDatabase.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/secret/PasswordHash.h"
#include "platform/service/store/StoredRecord.h"
#include "tests/platform/support/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sodium.h>
#include <sqlite3.h>

namespace zeqd {
namespace {

class DamagedDatabase : public ::testing::Test {
protected:
    DamagedDatabase() { EXPECT_GE(sodium_init(), 0); }
    InstallationPlan plan(bool empty) const {
        InstallationPlan plan;
        plan.kind = empty ? InstallationPlan::Kind::Empty : InstallationPlan::Kind::Demo;
        plan.dataDir = MIRL_SOURCE_DIR "/platform/service/data";
        plan.adminPassword = "known";
        plan.devices = empty ? 0 : 2000;
        plan.now = 1'700'000'000;
        return plan;
    }
    /// Opens it, and lets go of the file.
    Store open(bool empty = false) {
        Store store;
        openDatabase(path, store, plan(empty), [this](const std::string& line) { log += line + "\n"; });
        return store;
    }
    void sql(const char* text) {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, text, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }
    int aside() const {
        int count = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder.path()))
            count += file.path().filename().string().starts_with("zeq.db.damaged-");
        return count;
    }
    static bool opensWith(const Store& store, const std::string& password) {
        return store.findIf(Res::User, [&](const Record& user) {
            return user.is("role", "admin") && user.enabled("accountEnable") &&
                   verifyPassword(user.text("password"), password);
        }) != nullptr;
    }
    static bool tells(const Store& store) {
        return store.findIf(Res::UnacknowledgedAlerts, [](const Record& event) {
            return event.text("alertMsg").starts_with("The database was damaged");
        }) != nullptr;
    }
    void expectClosed(const Store& store) {
        EXPECT_FALSE(opensWith(store, ""));
        EXPECT_FALSE(opensWith(store, "known"));
        EXPECT_TRUE(tells(store));
        EXPECT_TRUE(store.singleton(Res::SystemGlobals).enabled("mirlBannerEnable"))
            << "the login page says it";
        EXPECT_NE(store.singleton(Res::SystemGlobals).text("mirlBannerText").find("zeqctl set user"),
                  std::string::npos);
        EXPECT_NE(store.find(Res::Swx, 1), nullptr);
    }

    TempFolder folder;
    const std::string path = folder.path() / "zeq.db";
    std::string log;
};

TEST_F(DamagedDatabase, IsNotANewOne) {
    for (const bool empty : {false, true}) {
        for (const std::string& content :
             {std::string(), std::string(10000, 'x'), std::string("SQLite format 3")}) {
            SCOPED_TRACE(content.substr(0, 20));
            std::ofstream(path, std::ios::binary) << content;
            expectClosed(open(empty));
            EXPECT_EQ(aside(), 1);
            const Store again = open(empty);
            expectClosed(again);
            EXPECT_EQ(aside(), 1) << "once";
            EXPECT_EQ(removeSetAside(path), "");
        }
        std::filesystem::remove(path);
        EXPECT_TRUE(opensWith(open(empty), empty ? "" : "known")) << "a new one opens as it is to";
        sql("DELETE FROM record WHERE resource = 'user'");
        expectClosed(open(empty));
        EXPECT_EQ(removeSetAside(path), "");
        std::filesystem::remove(path);
    }
}

TEST_F(DamagedDatabase, OpensNoAccountWithAnImpossibleValue) {
    const std::string good = diskText(*open().find(Res::User, 1));
    for (const auto& [from, to] :
         {std::pair("\"password\":", "\"password\":5,\"x\":"), std::pair("\"password\":", "\"other\":"),
          std::pair("\"password\":\"", "\"password\":\"plain"),
          std::pair("\"role\":\"admin\"", "\"role\":\"king\""),
          std::pair("\"passwordIsInitialized\":\"is_true\"", "\"passwordIsInitialized\":7"),
          std::pair("\"accountEnable\":\"enabled\"", "\"accountEnable\":\"\"")}) {
        SCOPED_TRACE(to);
        std::string bad = good;
        ASSERT_NE(bad.find(from), std::string::npos);
        bad.replace(bad.find(from), std::string_view(from).size(), to);
        const StoredRecord stored = readStored("user", 1, bad);
        EXPECT_FALSE(stored.sound);
        EXPECT_TRUE(!stored.record || !verifyPassword(stored.record->text("password"), ""));
    }
    EXPECT_TRUE(readStored("user", 1, good).sound);
    for (const std::int64_t index : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 32})
        EXPECT_FALSE(readStored("user", index, good).sound) << index;
    EXPECT_FALSE(readStored("printer", 1, "{}").sound);
    EXPECT_FALSE(readStored("zeqHello", 1, "{}").sound);
}

TEST_F(DamagedDatabase, GoesOnWithWhatCanBeRead) {
    const Store before = open();
    sql("UPDATE record SET body = 'x' WHERE resource = 'rx' AND id = 5");
    {
        const Store after = open();
        EXPECT_EQ(after.count(Res::Rx), before.count(Res::Rx) - 1);
        EXPECT_EQ(after.find(Res::Rx, 5), nullptr);
        EXPECT_EQ(after.find(Res::User, 1)->text("password"), before.find(Res::User, 1)->text("password"));
        EXPECT_FALSE(after.singleton(Res::SystemGlobals).enabled("mirlBannerEnable"));
        EXPECT_TRUE(tells(after));
        EXPECT_NE(log.find("1 record could not"), std::string::npos) << log;
        EXPECT_GT(after.nextIndex(Res::Rx), before.nextIndex(Res::Rx))
            << "lost ones may have had higher numbers";
    }
    // A page in the middle of the file: what is before it and what is behind it.
    const auto size = static_cast<std::streamoff>(std::filesystem::file_size(path));
    std::fstream(path, std::ios::binary | std::ios::in | std::ios::out).seekp(size / 2 / 4096 * 4096)
        << std::string(4096, '\xA5');
    const Store after = open();
    std::size_t there = 0, lost = 0;
    before.each(Res::Rx, [&](const RecordPtr& rx) {
        return ++(after.find(Res::Rx, rx->index()) ? there : lost), true;
    });
    before.each(Res::Tx, [&](const RecordPtr& tx) {
        return ++(after.find(Res::Tx, tx->index()) ? there : lost), true;
    });
    EXPECT_GT(there, 1500U);
    EXPECT_LT(lost, 100U);
    EXPECT_TRUE(tells(after));
    EXPECT_EQ(open().count(Res::Tx), after.count(Res::Tx));
}

TEST_F(DamagedDatabase, FoundWhileItIsWrittenIsWrittenAnew) {
    open();
    Store store;
    const auto disk = openDatabase(path, store, plan(false), [](const std::string&) {});
    // The file goes bad under the open database.
    std::fstream(path, std::ios::binary | std::ios::in | std::ios::out)
        << std::string(std::filesystem::file_size(path), '\xA5');
    std::string failure;
    for (std::uint32_t rx = 1; rx <= 2000 && failure.empty(); ++rx)
        failure = disk->write({{Res::Rx, rx, diskText(*store.find(Res::Rx, rx % 900 + 1))}});
    ASSERT_NE(failure, "");
    ASSERT_TRUE(disk->damaged()) << failure;
    store.retire(Res::Rx, 5000);
    ASSERT_EQ(disk->renew(store.content()), "");
    EXPECT_EQ(disk->write({{Res::Rx, 1, diskText(*store.find(Res::Rx, 1))}}), "");
    EXPECT_FALSE(disk->damaged());
    EXPECT_EQ(aside(), 1);
    const Store again = open();
    EXPECT_EQ(again.count(Res::Rx), store.count(Res::Rx));
    EXPECT_EQ(again.nextIndex(Res::Rx), store.nextIndex(Res::Rx));
}

} // namespace
} // namespace zeqd
