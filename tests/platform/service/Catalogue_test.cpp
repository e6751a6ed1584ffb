// The catalogue against itself, its page, the demo's data and the interface that uses it.
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/demo/EdidBlock.h"
#include "platform/service/demo/Installation.h"
#include "platform/service/record/Forms.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/request/Describe.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sodium.h>
#include <sstream>

namespace zeqd {
namespace {

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

void checkRows(std::span<const KeyRow> rows, const std::string& where) {
    std::set<std::string_view> keys;
    for (const KeyRow& row : rows) {
        const std::string name = where + "/" + std::string(row.key);
        EXPECT_TRUE(keys.insert(row.key).second) << name << " stands twice";
        EXPECT_NE(row.key, "index") << name;
        EXPECT_FALSE(row.help.empty()) << name;
        if (row.type == Type::Choice) {
            EXPECT_TRUE(row.fallback.empty() || findValue(*row.values, row.fallback) >= 0) << name;
        } else if (row.type == Type::Number) {
            const std::int64_t number =
                row.fallback.empty() ? row.low : std::stoll(std::string(row.fallback));
            EXPECT_TRUE(number >= row.low && number <= row.high) << name;
        } else if (row.type == Type::Text) {
            EXPECT_TRUE(row.fallback.size() <= row.high && hasForm(row.form, row.fallback)) << name;
        }
        EXPECT_TRUE(row.refersTo.empty() || findResource(row.refersTo)) << name;
        EXPECT_TRUE(row.mergeBy.empty() || findKey(row.rows(), row.mergeBy) >= 0) << name;
        checkRows(row.rows(), name);
    }
}

TEST(Catalogue, RowsAreSound) {
    for (const ResourceRow& row : catalogue()) checkRows(row.keys, std::string(row.name));
}

TEST(Catalogue, PageOfResourcesIsCurrent) {
    EXPECT_EQ(readFile(std::filesystem::path(MIRL_SOURCE_DIR) / "docs/resources.md"), resourcesPage())
        << "run build/platform/zeqd --describe-resources > docs/resources.md";
}

bool anyLevelHas(std::span<const KeyRow> rows, std::string_view key) {
    for (const KeyRow& row : rows)
        if ((row.key == key && row.access != Access::Internal) || anyLevelHas(row.rows(), key)) return true;
    return false;
}

/// Pairs of resource and key in calls such as readString("rx", index, "name", …), and settings rows with
/// .key = "name" in files that speak of resources.
TEST(Catalogue, KnowsEveryResourceAndKeyThatTheInterfaceNames) {
    const std::regex call(
        R"re((?:read|write)(?:String|UInt32|EnableDisable)(?:Merge)?\(\s*"(\w+)(?:/[\w/]+)?"\s*,[^,;"]*,\s*"(\w+)")re");
    const std::regex resourceName(R"re((?:\.resource|\.rowResource)\s*=\s*"(\w+)[/\w]*")re");
    const std::regex rowKey(R"re(\.key\s*=\s*"(\w+)")re");
    const std::string kPagesOwn = "change"; // whether a password is to be changed: stored nowhere
    std::size_t calls = 0;
    std::size_t keys = 0;
    for (const char* folder : {"db", "widgets", "frame", "views", "shell"}) {
        const auto root = std::filesystem::path(MIRL_SOURCE_DIR) / folder;
        if (!std::filesystem::exists(root)) continue;
        for (const auto& file : std::filesystem::recursive_directory_iterator(root)) {
            if (file.path().extension() != ".cpp" && file.path().extension() != ".h") continue;
            const std::string text = readFile(file.path());
            for (std::sregex_iterator match(text.begin(), text.end(), call), end; match != end;
                 ++match, ++calls) {
                const ResourceRow* row = findResource((*match)[1].str());
                EXPECT_TRUE(row && anyLevelHas(row->keys, (*match)[2].str()))
                    << file.path() << ": " << match->str();
            }
            std::vector<const ResourceRow*> named;
            for (std::sregex_iterator match(text.begin(), text.end(), resourceName), end; match != end;
                 ++match) {
                named.push_back(findResource((*match)[1].str()));
                EXPECT_TRUE(named.back()) << file.path() << ": " << match->str();
            }
            if (named.empty()) continue;
            for (std::sregex_iterator match(text.begin(), text.end(), rowKey), end; match != end;
                 ++match, ++keys) {
                bool known = (*match)[1].str() == kPagesOwn;
                for (const ResourceRow* row : named)
                    known = known || (row && anyLevelHas(row->keys, (*match)[1].str()));
                // Rows may name a further resource of their own.
                for (const ResourceRow& row : catalogue())
                    known = known || anyLevelHas(row.keys, (*match)[1].str());
                EXPECT_TRUE(known) << file.path() << ": " << match->str();
            }
        }
    }
    std::cout << calls << " calls and " << keys << " rows of the interface held against the catalogue\n";
}

TEST(Forms, AcceptAndRefuse) {
    struct {
        Form form;
        const char* text;
        bool good;
    } rows[] = {
        {Form::Eid, "00A1B2-C3D4E5", true},
        {Form::Eid, "00A1B2C3D4E5F", false},
        {Form::Eid, "00A1B2-C3D4E", false},
        {Form::Eid, "00A1B2-C3D4E!", false},
        {Form::IpV4, "0.0.0.0", true},
        {Form::IpV4, "255.255.255.255", true},
        {Form::IpV4, "010.001.1.1", true},
        {Form::IpV4, "256.1.1.1", false},
        {Form::IpV4, "1.2.3", false},
        {Form::IpV4, "1.2.3.4.5", false},
        {Form::IpV4, "1.2.3.", false},
        {Form::IpV4, "1.2.3.4 ", false},
        {Form::IpV4, "1.2.3.0004", false},
        {Form::IpV6, "::1", true},
        {Form::IpV6, "fd20:1::ffff:10.0.0.1", true},
        {Form::IpV6, "1::2::3", false},
        {Form::IpV6, "12345::", false},
        {Form::Ip, "10.0.0.1", true},
        {Form::Ip, "time.example", false},
        {Form::Host, "time.example", true},
        {Form::Host, "time", false},
        {Form::Host, "-time.example", false},
        {Form::Host, "time-.example", false},
        {Form::Host, "time..example", false},
        {Form::Host, "time.example.", false},
        {Form::Host, "time.1example", false},
        {Form::Host, "tme_1.example", false},
        {Form::Mac, "02:1A:4D:5E:00:14", true},
        {Form::Mac, "02-1a-4d-5e-00-14-aa-bb", true},
        {Form::Mac, "02:1A-4D:5E:00:14", false},
        {Form::Mac, "02:1A:4D:5E:00", false},
        {Form::Mac, "02:1A:4D:5E:00:1G", false},
        {Form::Url, "https://help.example/x", true},
        {Form::Url, "https://", false},
        {Form::Url, "ftp://help.example", false},
        {Form::Url, "http://help.example/\n", false},
        {Form::NoBlank, "a b", false},
        {Form::AlphaNumeric, "a-b", false},
        {Form::PrintableLines, "a\nb", true},
        {Form::PrintableLines, "a\tb", false},
    };
    for (const auto& row : rows) EXPECT_EQ(hasForm(row.form, row.text), row.good) << row.text;
}

class DemoData : public ::testing::Test {
protected:
    explicit DemoData(std::uint32_t users = 0) {
        EXPECT_GE(sodium_init(), 0);
        InstallationPlan plan;
        plan.dataDir = MIRL_SOURCE_DIR "/platform/service/data";
        plan.adminPassword = "x";
        plan.now = 1'700'000'000;
        plan.users = users;
        for (const RecordPtr& record : makeInstallation(plan)) store.load(record);
    }
    Store store;
};

TEST_F(DemoData, IsAControlRoomOfItsSize) {
    EXPECT_EQ(store.count(Res::Swx), 2U);
    EXPECT_EQ(store.count(Res::Rx), 20U);
    EXPECT_EQ(store.count(Res::Tx), 30U);
    EXPECT_EQ(store.count(Res::User), 8U);
    EXPECT_GE(store.count(Res::Edid), 12U);
    EXPECT_GE(store.count(Res::Connection), 5U);
    EXPECT_TRUE(store.find(Res::User, 1)->is("passwordIsInitialized", "is_true"));
    EXPECT_TRUE(store.find(Res::User, 2)->is("passwordIsInitialized", "is_false"));
    EXPECT_TRUE(store.find(Res::User, 2)->is("role", "admin"));
}

void referencesHold(const Store& store) {
    std::set<std::string> eids;
    std::set<std::pair<std::uint32_t, std::uint32_t>> ports;
    for (const Res kind : {Res::Swx, Res::Rx, Res::Tx}) {
        store.each(kind, [&](const RecordPtr& device) {
            EXPECT_TRUE(eids.insert(device->text("eid")).second) << device->text("eid");
            if (kind == Res::Swx) return true;
            const RecordPtr swx = store.find(Res::Swx, device->number("simSwx"));
            EXPECT_TRUE(swx && device->number("simPort") >= 1 &&
                        device->number("simPort") <= swx->number("simPortCount"))
                << device->text("name");
            EXPECT_TRUE(ports.emplace(device->number("simSwx"), device->number("simPort")).second)
                << device->text("name");
            return true;
        });
    }
    for (const ResourceRow& row : catalogue()) {
        store.each(row.id, [&](const RecordPtr& record) {
            for (std::size_t i = 0; i < row.keys.size(); ++i) {
                const KeyRow& key = row.keys[i];
                if (key.refersTo.empty() || record->fields()[i].number() == 0) continue;
                EXPECT_TRUE(store.find(findResource(key.refersTo)->id,
                                       static_cast<std::uint32_t>(record->fields()[i].number())))
                    << row.name << " " << record->index() << " " << key.key;
            }
            return true;
        });
    }
    store.each(Res::Connection, [&](const RecordPtr& connection) {
        EXPECT_TRUE(store.findNumber(Res::UserSession, "rxIndex", connection->number("rxIndex")));
        EXPECT_EQ(connection->text("rxEid"), store.find(Res::Rx, connection->number("rxIndex"))->text("eid"));
        EXPECT_EQ(connection->text("txEid"), store.find(Res::Tx, connection->number("txIndex"))->text("eid"));
        return true;
    });
}

TEST_F(DemoData, ReferencesHoldAndNothingIsThereTwice) {
    referencesHold(store);
}

class ManyAccounts : public DemoData {
protected:
    ManyAccounts() : DemoData(1000) {}
};

TEST_F(ManyAccounts, AreAsManyAsThereMayBeAndOfDifferentRights) {
    referencesHold(store);
    EXPECT_EQ(store.count(Res::User), 256U);
    std::set<std::string> names, rights;
    store.each(Res::User, [&](const RecordPtr& user) {
        EXPECT_TRUE(names.insert(user->text("name")).second) << user->text("name");
        EXPECT_TRUE(hasForm(Form::AlphaNumeric, user->text("name"))) << user->text("name");
        EXPECT_LE(user->text("name").size(), 20U);
        if (user->index() > 8)
            rights.insert(std::string(user->choice("role")) + std::string(user->choice("modeAllowed")) +
                          std::to_string(user->at("target").entries().size()));
        return true;
    });
    EXPECT_EQ(rights, (std::set<std::string>{"adminshare_or_private_mode0", "usershare_or_private_mode12",
                                             "userprivate_mode5", "usershare_mode2"}));
}

TEST_F(DemoData, MonitorsDifferAndFewAreDamaged) {
    std::set<std::string> makers, blocks, damaged;
    bool analog = false;
    const auto look = [&](const RecordPtr& record, const char* key) {
        const std::string& data = record->text(key);
        EXPECT_EQ(data.size(), kEdidRecord);
        makers.insert(data.substr(8, 2));
        blocks.insert(data);
        if (!isSoundEdid(data)) damaged.insert(record->text("name"));
        analog = analog || !(static_cast<unsigned char>(data[20]) & 0x80);
        return true;
    };
    store.each(Res::Edid, [&](const RecordPtr& edid) { return look(edid, "data"); });
    EXPECT_EQ(blocks.size(), store.count(Res::Edid));
    EXPECT_GE(makers.size(), 10U);
    EXPECT_TRUE(analog);
    store.each(Res::Rx, [&](const RecordPtr& rx) { return look(rx, "simMonitor"); });
    EXPECT_EQ(blocks.size(), store.count(Res::Edid) + store.count(Res::Rx));
    store.each(Res::Tx, [&](const RecordPtr& tx) { return look(tx, "simEdid"); });
    // A wrong checksum and a broken header in the library and at a Receiver.
    EXPECT_EQ(damaged, (std::set<std::string>{"Kestrel K17 worn cable", "Linden L32 before repair",
                                              "Lobby Display", "Planning 2"}));
}

} // namespace
} // namespace zeqd
