// The database file and the frames.
#include "platform/service/net/FrameReader.h"
#include "platform/service/sim/Firmware.h"
#include "platform/service/store/SqliteDisk.h"
#include "platform/service/store/Store.h"
#include "tests/platform/support/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sodium.h>
#include <sqlite3.h>

namespace zeqd {
namespace {

void runSql(const std::string& path, const char* sql) {
    sqlite3* database = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &database), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    sqlite3_close(database);
}

class DatabaseFile : public ::testing::Test {
protected:
    DatabaseFile() {
        SqliteDisk disk(path);
        EXPECT_EQ(disk.write({{Res::Rx, 1, R"({"eid":"AAAAAA-000001","name":"One"})"},
                              {Res::Rx, 2, R"({"eid":"AAAAAA-000002","name":"Two"})"}}),
                  "");
        EXPECT_EQ(disk.write({{Res::Rx, 2, std::nullopt}}), "");
    }
    TempFolder folder;
    std::string path = folder.path() / "zeq.db";
};

TEST_F(DatabaseFile, ComesBackAsItWas) {
    SqliteDisk disk(path);
    Store store;
    EXPECT_EQ(disk.load(store), 1U);
    EXPECT_EQ(store.find(Res::Rx, 1)->text("name"), "One");
    EXPECT_EQ(store.nextIndex(Res::Rx), 3U) << "a removed record's index is not given away again";
    EXPECT_EQ(std::filesystem::status(path).permissions() & std::filesystem::perms::group_all,
              std::filesystem::perms::none);
    EXPECT_EQ(std::filesystem::status(path).permissions() & std::filesystem::perms::others_all,
              std::filesystem::perms::none);
}

TEST_F(DatabaseFile, OfAnOlderProgramKeepsWhatIsStillKnown) {
    runSql(path,
           R"(UPDATE record SET body = '{"eid":"AAAAAA-000001","name":"One","gone":1,"usbMode":"gone"}')");
    SqliteDisk disk(path);
    Store store;
    disk.load(store);
    EXPECT_EQ(store.find(Res::Rx, 1)->text("name"), "One");
    EXPECT_EQ(store.find(Res::Rx, 1)->choice("usbMode"), "all_devices");
}

TEST_F(DatabaseFile, OfTheFirstVersionIsBroughtUp) {
    runSql(path, "DROP TABLE retired; PRAGMA user_version = 1");
    for (const std::uint32_t next : {2U, 3U}) {
        SqliteDisk disk(path);
        Store store;
        EXPECT_EQ(disk.load(store), 1U);
        EXPECT_EQ(store.find(Res::Rx, 1)->text("name"), "One");
        EXPECT_EQ(store.nextIndex(Res::Rx), next);
        EXPECT_EQ(disk.write({{Res::Rx, 2, "{}"}, {Res::Tx, 7, std::nullopt}}), "");
        EXPECT_EQ(disk.write({{Res::Rx, 2, std::nullopt}}), "");
    }
}

TEST_F(DatabaseFile, OfOthersIsLeftAlone) {
    runSql(path, "PRAGMA user_version = 99");
    EXPECT_THROW(
        try { SqliteDisk disk(path); } catch (const DatabaseDamaged&) { FAIL() << "not damaged, newer"; },
        std::runtime_error);
    const std::string other = folder.path() / "other.db";
    runSql(other, "CREATE TABLE theirs(x)");
    EXPECT_THROW(SqliteDisk disk(other), DatabaseDamaged) << "it is set aside, not lost";
    EXPECT_THROW(SqliteDisk disk(folder.path() / "no" / "folder"), std::runtime_error);
}

TEST_F(DatabaseFile, ThatIsDamagedIsToldAndSetAside) {
    struct {
        const char* what;
        std::streamoff at;
        std::size_t length;
    } rows[] = {{"head", 0, 100}, {"a page", 4096, 4096}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::string copy = folder.path() / "copy.db";
        std::filesystem::copy_file(path, copy, std::filesystem::copy_options::overwrite_existing);
        {
            std::fstream file(copy, std::ios::binary | std::ios::in | std::ios::out);
            file.seekp(row.at);
            file << std::string(row.length, '\xA5');
        }
        EXPECT_THROW(
            {
                SqliteDisk disk(copy);
                Store store;
                disk.load(store);
            },
            DatabaseDamaged);
        const std::string aside = setAside(copy, 1234);
        EXPECT_EQ(aside, copy + ".damaged-1234");
        EXPECT_TRUE(std::filesystem::exists(aside));
        EXPECT_FALSE(std::filesystem::exists(copy));
    }
    runSql(path, "UPDATE record SET body = 'no json'");
    SqliteDisk disk(path);
    Store store;
    EXPECT_THROW(disk.load(store), DatabaseDamaged);
}

TEST(Frames, ComeInPiecesAndInLumps) {
    std::string wire;
    for (const std::string& text : {std::string("{}"), std::string(), std::string(kMaxRequest, 'x')})
        appendFrame(wire, text);
    for (const std::size_t piece : {std::size_t{1}, std::size_t{3}, std::size_t{4096}, wire.size()}) {
        FrameReader decoder;
        std::vector<std::size_t> lengths;
        for (std::size_t at = 0; at < wire.size(); at += piece) {
            decoder.append(std::string_view(wire).substr(at, piece));
            while (const auto frame = decoder.next()) lengths.push_back(frame->size());
            // A byte at a time is tried on the short frames only.
            if (piece < 4096 && at > 100) break;
        }
        EXPECT_EQ(lengths.size(), piece < 4096 ? 2U : 3U) << piece;
        EXPECT_FALSE(decoder.broken());
        EXPECT_EQ(decoder.partial(), piece < 4096);
    }
}

TEST(Frames, GiveTheirRoomBackAndTellWhenTheNextIsThere) {
    FrameReader decoder;
    std::string wire;
    appendFrame(wire, std::string(kMaxRequest, 'x'));
    appendFrame(wire, "{}");
    decoder.append(wire.substr(0, wire.size() - 1));
    ASSERT_TRUE(decoder.next());
    EXPECT_FALSE(decoder.ready()) << "a byte is missing";
    decoder.append(wire.substr(wire.size() - 1));
    EXPECT_TRUE(decoder.ready());
    ASSERT_TRUE(decoder.next());
    EXPECT_LT(decoder.held(), std::size_t{kReadChunk} * 3);
    EXPECT_FALSE(decoder.ready());
    decoder.append(std::string("\x00\x10\x00\x01", 4));
    EXPECT_TRUE(decoder.ready()) << "nothing can be read behind it";
}

TEST(Frames, ThatAreTooLongBreakTheStream) {
    FrameReader decoder;
    decoder.append(std::string("\x00\x10\x00\x01", 4));
    EXPECT_FALSE(decoder.next());
    EXPECT_TRUE(decoder.broken());
    decoder.append(std::string("\x00\x00\x00\x02{}", 6));
    EXPECT_FALSE(decoder.next());
}

TEST(FirmwareFile, IsReadOnlyWhenItIsSound) {
    ASSERT_GE(sodium_init(), 0);
    const std::string good = makeFirmware("rx", "3.2.0", 100);
    const auto firmware = readFirmware(good);
    ASSERT_TRUE(firmware);
    EXPECT_EQ(firmware->type, "rx");
    EXPECT_EQ(firmware->version, "3.2.0");
    for (std::size_t length = 0; length < good.size(); ++length)
        EXPECT_FALSE(readFirmware(good.substr(0, length)));
    for (std::size_t at = good.size() - 100; at < good.size(); ++at) {
        std::string changed = good;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        EXPECT_FALSE(readFirmware(changed)) << at;
    }
    EXPECT_FALSE(readFirmware(good + "x"));
    for (const char* bad : {"none", "", "RX", "printer"})
        EXPECT_FALSE(readFirmware(makeFirmware(bad, "1", 1))) << bad;
    EXPECT_FALSE(readFirmware(makeFirmware("rx", std::string(25, '1'), 1)));
}

} // namespace
} // namespace zeqd
