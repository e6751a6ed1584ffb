// Settings files: what goes in comes out, and nothing else is let in.
#include "platform/service/archive/Seal.h"
#include "platform/service/archive/SettingsArchive.h"
#include "platform/service/archive/SettingsText.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/secret/PasswordHash.h"
#include "platform/service/store/Store.h"
#include "tests/platform/service/support/Harness.h"
#include "tests/platform/support/TempFolder.h"

#include <archive.h>
#include <archive_entry.h>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <sodium.h>

namespace zeqd::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

struct Member {
    std::string name;
    std::string content;
    mode_t type = AE_IFREG;
    std::string link = {};
};

std::string makeTar(const std::vector<Member>& members) {
    std::string file(64U << 20, '\0');
    std::size_t used = 0;
    archive* writer = archive_write_new();
    archive_write_add_filter_gzip(writer);
    archive_write_set_format_gnutar(writer);
    archive_write_open_memory(writer, file.data(), file.size(), &used);
    for (const Member& member : members) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, member.name.c_str());
        archive_entry_set_filetype(entry, member.type);
        archive_entry_set_perm(entry, 0600);
        archive_entry_set_size(entry, static_cast<la_int64_t>(member.content.size()));
        if (!member.link.empty()) archive_entry_set_symlink(entry, member.link.c_str());
        archive_write_header(writer, entry);
        archive_write_data(writer, member.content.data(), member.content.size());
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
    file.resize(used);
    return file;
}

TEST(Archive, GoesThereAndBack) {
    ASSERT_GE(sodium_init(), 0);
    std::string why;
    const std::string text = "{\"a\":\"" + std::string(100000, 'x') + "\"}";
    for (const char* password : {"", "pass"}) {
        const std::optional<std::string> file = packSettings(text, password);
        ASSERT_TRUE(file);
        EXPECT_EQ(isSealed(*file), *password != 0);
        EXPECT_EQ(unpackSettings(*file, password, why), text);
        EXPECT_EQ(file->find("xxxxxxxxxxxxxxxx"), std::string::npos);
    }
    EXPECT_NE(*packSettings(text, "pass"), *packSettings(text, "pass")) << "never the same salt and nonce";
}

TEST(Archive, RefusesWhatIsNotItsOwn) {
    ASSERT_GE(sodium_init(), 0);
    struct {
        const char* what;
        std::string file;
    } rows[] = {
        {"nothing", ""},
        {"text", "hello"},
        {"empty archive", makeTar({})},
        {"another name", makeTar({{"other.json", "{}"}})},
        {"a path out", makeTar({{"../settings.json", "{}"}})},
        {"an absolute path", makeTar({{"/settings.json", "{}"}})},
        {"a second member", makeTar({{"settings.json", "{}"}, {"evil", "x"}})},
        {"twice the same", makeTar({{"settings.json", "{}"}, {"settings.json", "{}"}})},
        {"a folder", makeTar({{"settings.json", "", AE_IFDIR}})},
        {"a link", makeTar({{"settings.json", "", AE_IFLNK, "/etc/passwd"}})},
        {"a bomb", makeTar({{"settings.json", std::string(kMaxSettings + 1, '0')}})},
    };
    for (const auto& row : rows) {
        std::string why;
        EXPECT_FALSE(unpackSettings(row.file, "", why)) << row.what;
        EXPECT_EQ(why, "service.detail.settings_foreign") << row.what;
    }
}

TEST(Archive, RefusesEveryCutAndEveryChangedBit) {
    ASSERT_GE(sodium_init(), 0);
    std::string why;
    const std::string plain = *packSettings("{\"name\":\"value\"}", "");
    for (std::size_t length = 0; length < plain.size(); ++length)
        EXPECT_FALSE(unpackSettings(plain.substr(0, length), "", why)) << length;
    // Each try costs a slow key, so the sealed file is changed at some places of each part.
    const std::string sealed = *packSettings("{\"name\":\"value\"}", "pass");
    for (const std::size_t at :
         {std::size_t{8}, std::size_t{30}, std::size_t{47}, std::size_t{48}, sealed.size() - 1}) {
        std::string changed = sealed;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        EXPECT_FALSE(unpackSettings(changed, "pass", why)) << at;
        EXPECT_EQ(why, "service.detail.settings_password");
        EXPECT_FALSE(unpackSettings(sealed.substr(0, at), "pass", why)) << at;
    }
    EXPECT_FALSE(unpackSettings(sealed, "Pass", why));
    EXPECT_FALSE(unpackSettings(sealed, "", why));
}

class Settings : public ::testing::Test {
protected:
    Settings() { service.settingsDir = folder.path() / "settings", service.restart(); }
    Answer zip(const std::string& password) {
        return service.set("swxControl",
                           R"({"index":1,"settingsAction":"zip","settingsPassword":")" + password + R"("})");
    }
    Answer unzip(const std::string& file, const std::string& password) {
        return service.set("swxControl", R"({"index":1,"settingsAction":"unzip","settingsFilename":")" +
                                             file + R"(","settingsPassword":")" + password + R"("})");
    }
    std::string file(const char* name) { return service.settingsDir + "/" + name; }

    TempFolder folder;
    Harness service;
};

TEST_F(Settings, ComeBackAfterTheNextStart) {
    for (const char* name : {"settings.tar.gz", "settings.cze"}) {
        SCOPED_TRACE(name);
        ASSERT_EQ(zip(std::string_view(name) == "settings.cze" ? "abc" : "").error(), 0);
        ASSERT_EQ(std::distance(std::filesystem::directory_iterator(service.settingsDir), {}), 1)
            << "no unprotected file of before stays beside a protected one";
        const std::string lastUser =
            service.create("user", R"({"name":"late","role":"user","password":"x"})").at("index");
        ASSERT_EQ(service.set("rx", R"({"index":1,"name":"Changed"})").error(), 0);
        ASSERT_EQ(service.set("user", R"({"index":1,"password":"changed"})").error(), 0);
        const int monitor =
            service.get("edid", R"("query":{"name":"Brightwell BW2412 24in"})").number("index");
        ASSERT_EQ(service.remove("edid", monitor).error(), 0);
        ASSERT_EQ(unzip(file(name), "abc").error(), 0);
        EXPECT_EQ(service.value("rx", 1, "name"), "Changed") << "not before the reboot";
        service.restart();
        EXPECT_EQ(service.value("rx", 1, "name"), "Desk 1 Left");
        EXPECT_EQ(service.value("user", std::stoi(lastUser), "name"), "error 1009");
        EXPECT_EQ(service.get("edid", R"("query":{"name":"Brightwell BW2412 24in"})").rowCount(), 1U);
        EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"test-1"})").error(), 0);
        EXPECT_EQ(service.value("rx", 1, "status"), "ready") << "the state of a device is no setting";
        service.restart();
        EXPECT_EQ(service.get("unacknowledgedAlerts").text().find("settings file have been installed"),
                  service.get("unacknowledgedAlerts").text().rfind("settings file have been installed"))
            << "installed once";
        service.set("alertsControl", R"({"alertsAction":"ack_all"})");
    }
}

TEST_F(Settings, ThatAreNotSoundChangeNothing) {
    const auto text = [](const std::string& records) {
        return R"({"format":"zeq-settings","version":1,"records":{)" + records + "}}";
    };
    const std::string rest =
        R"("cfgDefaults":[],"eventLogControl":[],"alertLogControl":[],"edid":[],"swx":[],"rx":[],"tx":[])";
    const std::string mostRest =
        R"("cfgDefaults":[],"eventLogControl":[],"alertLogControl":[],"edid":[],"swx":[],"tx":[])";
    const std::string all = R"("systemGlobals":[],"user":[{"index":1,"name":"a","role":"admin"}],)" + rest;
    const auto many = [](int count, const std::string& item) {
        std::string out = item;
        for (int i = 1; i < count; ++i) out += ',' + item;
        return out;
    };
    const auto secondText = [&rest](const std::string& user) {
        return R"({"format":"zeq-settings","version":2,"eids":["00A703-030011","00A703-030012"],)"
               R"("records":{"systemGlobals":[],"user":[)" +
               user + "]," + rest + "}}";
    };
    const auto second = [&](const std::string& targets, const std::string& favorites) {
        return secondText(R"({"index":1,"name":"a","role":"admin","targets":")" + targets +
                          R"(","favorites":")" + favorites + "\"}");
    };
    const auto hashed = [&](const std::string& hash) {
        return text(R"("systemGlobals":[],"user":[{"index":1,"name":"a","role":"admin","password":")" + hash +
                    "\"}]," + rest);
    };
    const std::string admin = R"("user":[{"index":1,"name":"a","role":"admin"}],)";
    struct {
        const char* what;
        std::string settings;
        std::string detail;
    } rows[] = {
        {"no JSON", "x", "service.detail.settings_foreign"},
        {"another format", R"({"format":"other","records":{}})", "service.detail.settings_foreign"},
        {"another version", R"({"format":"zeq-settings","version":3,"records":{}})",
         "service.detail.settings_version"},
        {"parts missing", text(""), "tx"},
        {"no administrator", text(R"("systemGlobals":[],"user":[],)" + rest),
         "service.detail.last_administrator"},
        {"a bad value", text(R"("systemGlobals":[{"switchApiPort":99999}],)" + admin + rest),
         "switchApiPort: 0 to 65535"},
        {"two of one index",
         text(R"("systemGlobals":[],"user":[{"index":1,"name":"a"},{"index":1,"name":"b"}],)" + rest),
         "user"},
        {"two of one name",
         text(R"("systemGlobals":[],"user":[{"index":1,"name":"a"},{"index":2,"name":"a"}],)" + rest),
         "user"},
        {"no index", text(R"("systemGlobals":[],"user":[{"index":0,"name":"a","role":"admin"}],)" + rest),
         "user"},
        {"no name", text(R"("systemGlobals":[],"user":[{"index":1,"role":"admin"}],)" + rest), "user"},
        {"two of one EID",
         text(R"("systemGlobals":[],"rx":[{"eid":"00A703-030011"},{"eid":"00A703-030011"}],)" + admin +
              mostRest),
         "rx"},
        {"no EID", text(R"("systemGlobals":[],"rx":[{"name":"x"}],)" + admin + mostRest), "rx"},
        {"a record of a hundred thousand values",
         text(R"("systemGlobals":[],"user":[{"index":1,"name":"a","role":"admin","target":[)" +
              many(100000, "{}") + "]}]," + rest),
         "user"},
        {"ten thousand users", text(R"("systemGlobals":[],"user":[)" + many(10000, "{}") + "]," + rest),
         "user"},
        {"a foreign hash", hashed("password"), "user"},
        {"a hash of another kind",
         hashed("$argon2i$v=19$m=16384,t=3,p=1$c2FsdHNhbHRzYWx0$" + std::string(43, 'A')), "user"},
        {"a hash that takes a minute",
         hashed("$argon2id$v=19$m=1048576,t=99,p=1$c2FsdHNhbHRzYWx0c2FsdA$" + std::string(43, 'A')), "user"},
        {"a cheap hash", hashed("$argon2id$v=19$m=8,t=1,p=1$c2FsdHNhbHRzYWx0c2FsdA$" + std::string(43, 'A')),
         "user"},
        {"a nested one", text(R"("systemGlobals":[{"rapParameters":{"sshPassword":"x"}}],)" + admin + rest),
         "systemGlobals"},
        {"targets beyond the list", second("0-2", ""), "user"},
        {"a range backwards", second("1-0", ""), "user"},
        {"half a range", second("0-", ""), "user"},
        {"a range of three", second("0-1-1", ""), "user"},
        {"no numbers", second("a", ""), "user"},
        {"a comma at the end", second("0,", ""), "user"},
        {"a thousand favorites", second("", many(1000, "0")), "user"},
        {"numbers of Transmitters",
         secondText(R"({"index":1,"name":"a","role":"admin","target":[{"txIndex":1}]})"), "user"},
        {"an EID that is none",
         R"({"format":"zeq-settings","version":2,"eids":["x"],"records":{)" + all + "}}", "eids"},
        {"records twice", R"({"format":"zeq-settings","version":1,"records":{},"records":{}})",
         "service.detail.settings_foreign"},
        {"a record that is none", text(R"("systemGlobals":[1],)" + admin + rest), "systemGlobals"},
    };
    const std::string before = dump(service.engine->store());
    const std::string path = folder.path() / "bad.tar.gz";
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        std::ofstream(path, std::ios::binary) << *packSettings(row.settings, "");
        const Answer answer = unzip(path, "");
        EXPECT_NE(answer.error(), 0) << answer.text();
        EXPECT_EQ(answer.detail(), row.detail);
        EXPECT_EQ(dump(service.engine->store()), before);
    }
    std::ofstream(path, std::ios::binary) << *packSettings(text(R"("systemGlobals":[],)" + admin + rest), "");
    EXPECT_EQ(unzip(path, "").error(), 0) << "the frame of these rows is sound";
    for (const std::string& good : {second("0-1", "1,0"), hashed(hashPassword("x"))}) {
        std::ofstream(path, std::ios::binary) << *packSettings(good, "");
        EXPECT_EQ(unzip(path, "").error(), 0) << good;
    }
}

TEST_F(Settings, ARefusedZipLeavesTheFileOfBefore) {
    const auto content = [&] {
        std::string all;
        for (const auto& entry : std::filesystem::directory_iterator(service.settingsDir)) {
            std::ifstream in(entry.path(), std::ios::binary);
            all += entry.path().filename().string() + std::string(std::istreambuf_iterator<char>(in), {});
        }
        return all;
    };
    const auto ask = [](const std::string& members) {
        return R"({"method":"set","resource":"swxControl","params":{"settingsAction":"zip",)" + members +
               "}}";
    };
    ASSERT_EQ(zip("").error(), 0);
    ASSERT_EQ(zip("secret").error(), 0);
    const std::string before = content();
    for (const std::string& members :
         {std::string(R"("settingsPassword":5)"), std::string(R"("settingsPassword":null)"),
          R"("settingsPassword":")" + std::string(65, 'x') + '"',
          std::string(R"("settingsPassword":"","nothing":1)"),
          std::string(R"("settingsPassword":"","index":"x")"),
          std::string(R"("settingsPassword":"","eid":"00A701-010001","lcdBacklightFlashDuration":30)"),
          std::string(R"("settingsPassword":"","cascadeRoleAction":"unlink_peer")")}) {
        EXPECT_NE(service.ask(ask(members)).error(), 0) << members;
        EXPECT_EQ(content(), before) << members;
    }
    EXPECT_EQ(service.value("swx", 1, "lcdBacklightFlash"), "disabled");
    // Whoever is logged out while the file is being made gets none.
    const Answer login = service.ask(
        R"({"method":"create","resource":"adminSession","params":{"username":"admin","password":"test-1","sessionType":"mirl"}})",
        9);
    ASSERT_EQ(login.error(), 0);
    std::string answer;
    service.engine->request(9, R"({"id":1,)" + ask(R"("settingsPassword":"")").substr(1),
                            [&](std::string text) { answer = std::move(text); });
    service.engine->request(7,
                            R"({"id":1,"method":"delete","resource":"adminSession","params":{"index":)" +
                                login.at("index") + "}}",
                            [](const std::string&) {});
    service.engine->flush();
    ASSERT_EQ(answer, "");
    service.executor.step(Lane::Disk);
    service.settle();
    EXPECT_EQ(Answer(answer).error(), 1105);
    EXPECT_EQ(content(), before);
}

std::string entries(const std::vector<int>& transmitters) {
    std::string out;
    for (const int tx : transmitters)
        out += (out.empty() ? "[" : ",") + ("{\"txIndex\":" + std::to_string(tx)) + "}";
    return out.empty() ? "[]" : out + "]";
}

TEST_F(Settings, GiveRightsToTheDevicesThatHadThemAndToNoOthers) {
    service.set("user", R"({"index":3,"target":)" + entries({1, 2, 3, 5}) + R"(,"favorite":)" +
                            entries({5, 3}) + "}");
    ASSERT_EQ(zip("").error(), 0);
    // The computer behind number 3 is another one now, its own has come back under a new number; 5 has gone.
    const std::string eid = service.value("tx", 3, "eid");
    ASSERT_EQ(service.remove("tx", 3).error(), 0);
    ASSERT_EQ(service.remove("tx", 5).error(), 0);
    ASSERT_EQ(
        service.set("simControl", R"({"action":"attach","resource":"tx","eid":")" + eid + "\"}").error(), 0);
    const int back = service.get("tx", "\"query\":{\"eid\":\"" + eid + "\"}").number("index");
    ASSERT_GT(back, 5);
    ASSERT_EQ(unzip(file("settings.tar.gz"), "").error(), 0);
    service.restart();
    EXPECT_EQ(service.value("user", 3, "target"), entries({1, 2, back}));
    EXPECT_EQ(service.value("user", 3, "favorite"), entries({back}));
    EXPECT_THAT(service.log, Contains(HasSubstr("3 targets and favorites"))) << "with another user's";
}

TEST_F(Settings, OfTheFirstVersionAreReadByTheEidsThatTheyTell) {
    const std::string path = folder.path() / "old.tar.gz";
    std::ofstream(path, std::ios::binary) << *packSettings(
        R"({"format":"zeq-settings","version":1,"created":1,"records":{"systemGlobals":[],"cfgDefaults":[],)"
        R"("eventLogControl":[],"alertLogControl":[],"edid":[],"swx":[],"rx":[],"user":[{"index":1,"name":"admin",)"
        R"("role":"admin"},{"index":2,"name":"b","role":"user","target":[{"txIndex":1},{"txIndex":2},{"txIndex":9}],)"
        R"("favorite":[{"txIndex":2},{"txIndex":1}]}],"tx":[{"index":1,"eid":")" +
            service.value("tx", 7, "eid") + R"("},{"index":2,"eid":")" + service.value("tx", 6, "eid") +
            R"("}]}})",
        "");
    ASSERT_EQ(unzip(path, "").error(), 0);
    service.restart();
    const Answer user = service.get("user", R"("query":{"name":"b"})");
    EXPECT_EQ(user.at("target"), entries({7, 6}));
    EXPECT_EQ(user.at("favorite"), entries({6, 7}));
    EXPECT_THAT(service.log, Contains(HasSubstr("1 targets and favorites")));
}

TEST_F(Settings, NameUsersAndEndTheirSessions) {
    const std::string old =
        service.create("user", R"({"name":"old","role":"user","password":"x"})").at("index");
    ASSERT_EQ(
        service.set("rx", R"({"index":5,"autoLoginControl":"enabled","autoLoginUserIndex":)" + old + "}")
            .error(),
        0);
    ASSERT_EQ(zip("").error(), 0);
    ASSERT_EQ(service.remove("user", std::stoi(old)).error(), 0);
    const std::string other =
        service.create("user", R"({"name":"other","role":"user","password":"x"})").at("index");
    ASSERT_EQ(
        service.set("simControl", R"({"action":"attach","resource":"rx","eid":"00A702-0F0F0F"})").error(), 0);
    const std::string fresh = service.get("rx", R"("query":{"eid":"00A702-0F0F0F"})").at("index");
    ASSERT_EQ(service
                  .set("rx", R"({"index":)" + fresh +
                                 R"(,"autoLoginControl":"enabled","autoLoginUserIndex":)" + other + "}")
                  .error(),
              0);
    ASSERT_EQ(service.get("userSession").error(), 0);
    ASSERT_EQ(service.get("connection").error(), 0);
    ASSERT_EQ(unzip(file("settings.tar.gz"), "").error(), 0);
    service.restart();
    const std::string again = service.get("user", R"("query":{"name":"old"})").at("index");
    EXPECT_GT(std::stoi(again), std::stoi(other)) << "neither its own former number nor another's";
    EXPECT_EQ(service.value("rx", 5, "autoLoginUserIndex"), again);
    EXPECT_EQ(service.value("rx", 5, "autoLoginControl"), "enabled");
    EXPECT_EQ(service.value("rx", std::stoi(fresh), "autoLoginUserIndex"), "0");
    EXPECT_EQ(service.value("rx", std::stoi(fresh), "autoLoginControl"), "disabled");
    EXPECT_EQ(service.value("user", 1, "name"), "admin") << "who was there keeps the number";
    EXPECT_EQ(service.get("userSession").error(), 1009);
    EXPECT_EQ(service.get("connection").error(), 1009);
}

TEST(SettingsText, OfTheLargestInstallationIsReadAgain) {
    ASSERT_GE(sodium_init(), 0);
    Store store;
    // Pieces of a text longer than what compression looks back.
    std::mt19937 random(1);
    std::string pool(1U << 18, ' ');
    for (char& c : pool) c = static_cast<char>(' ' + random() % ('~' - ' '));
    const auto noise = [&](std::size_t length) {
        return pool.substr(random() % (pool.size() - length), length);
    };
    for (const Res kind : {Res::Rx, Res::Tx})
        for (std::uint32_t i = 1; i <= resource(kind).capacity; ++i) {
            Record device(kind, i);
            char eid[16];
            std::snprintf(eid, sizeof eid, "00A70%d-%06X", kind == Res::Rx ? 2 : 3, i);
            device.setText("eid", eid).setText("name", noise(40));
            for (const char* key : {"location", "description", "notes"}) device.setText(key, noise(64));
            store.load(std::make_shared<const Record>(std::move(device)));
        }
    auto everySecond = std::make_shared<Entries>();
    for (std::uint32_t i = 1; i <= resource(Res::Tx).capacity; i += 2)
        everySecond->push_back({Value(std::int64_t{i})});
    for (std::uint32_t i = 1; i <= resource(Res::User).capacity; ++i) {
        Record user(Res::User, i);
        user.setText("name", "u" + std::to_string(i)).choose("role", "admin");
        user.at("target") = EntriesPtr(everySecond);
        store.load(std::make_shared<const Record>(std::move(user)));
    }
    const std::string text = settingsText(store, 0);
    const std::optional<std::string> file = packSettings(text, "");
    ASSERT_TRUE(file);
    EXPECT_LE(file->size(), kMaxArchive);
    std::string why;
    EXPECT_EQ(unpackSettings(*file, "", why), text);
    Errors errors;
    checkSettings(text, errors);
    EXPECT_TRUE(errors.empty()) << errors.front().detail;
}

TEST_F(Settings, FilesThatCannotBeRead) {
    EXPECT_EQ(unzip("/nowhere", "").detail(), "service.detail.settings_file");
    EXPECT_EQ(unzip(folder.path(), "").detail(), "service.detail.settings_file");
    EXPECT_EQ(unzip("/dev/zero", "").detail(), "service.detail.settings_file");
    EXPECT_EQ(service.set("swxControl", R"({"index":1,"settingsAction":"unpack"})").error(), 1010);
    service.settingsDir = "/proc/none";
    service.restart();
    EXPECT_EQ(zip("").detail(), "service.detail.settings_folder");
}

} // namespace
} // namespace zeqd::testing
