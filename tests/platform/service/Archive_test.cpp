// Settings files: what goes in comes out, and nothing else is let in.
#include "platform/service/archive/Seal.h"
#include "platform/service/archive/SettingsArchive.h"
#include "tests/platform/service/support/Harness.h"
#include "tests/platform/support/TempFolder.h"

#include <archive.h>
#include <archive_entry.h>
#include <fstream>
#include <gtest/gtest.h>
#include <sodium.h>

namespace zeqd::testing {
namespace {

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
    ASSERT_EQ(zip("").error(), 0);
    ASSERT_EQ(zip("abc").error(), 0);
    for (const char* name : {"settings.tar.gz", "settings.cze"}) {
        SCOPED_TRACE(name);
        const std::string lastUser =
            service.create("user", R"({"name":"late","role":"user","password":"x"})").at("index");
        ASSERT_EQ(service.set("rx", R"({"index":1,"name":"Changed"})").error(), 0);
        ASSERT_EQ(service.set("user", R"({"index":1,"password":"changed"})").error(), 0);
        ASSERT_EQ(service.remove("edid", 1).error(), 0);
        ASSERT_EQ(unzip(file(name), "abc").error(), 0);
        EXPECT_EQ(service.value("rx", 1, "name"), "Changed") << "not before the reboot";
        service.restart();
        EXPECT_EQ(service.value("rx", 1, "name"), "Desk 1 Left");
        EXPECT_EQ(service.value("user", std::stoi(lastUser), "name"), "error 1009");
        EXPECT_EQ(service.value("edid", 1, "name"), "Brightwell BW2412 24in");
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
    const std::string admin = R"("user":[{"index":1,"name":"a","role":"admin"}],)";
    struct {
        const char* what;
        std::string settings;
        std::string detail;
    } rows[] = {
        {"no JSON", "x", "service.detail.settings_foreign"},
        {"another format", R"({"format":"other","records":{}})", "service.detail.settings_foreign"},
        {"another version", R"({"format":"zeq-settings","version":2,"records":{}})",
         "service.detail.settings_version"},
        {"parts missing", text(""), "systemGlobals"},
        {"no administrator", text(R"("systemGlobals":[],"user":[],)" + rest),
         "service.detail.last_administrator"},
        {"a bad value", text(R"("systemGlobals":[{"switchApiPort":99999}],)" + admin + rest),
         "switchApiPort: 0 to 65535"},
        {"two of one index",
         text(R"("systemGlobals":[],"user":[{"index":1,"name":"a"},{"index":1,"name":"b"}],)" + rest),
         "user"},
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
