#include "platform/client/AttributeStore.h"
#include "tests/platform/support/LogCapture.h"
#include "tests/platform/support/TempFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace {

class Attributes : public testing::Test {
protected:
    AttributeStore stored(const std::string& text) {
        std::ofstream(mPath, std::ios::binary) << text;
        return AttributeStore(mPath);
    }
    TempFolder mFolder;
    std::string mPath = mFolder.path() / "attributes";
    LogCapture mLog;
};

TEST_F(Attributes, Lines) {
    const AttributeStore store = stored("# brand\n"
                                        "switch.oem.short=brenmor\n"
                                        "  firmware.appversion \t=  1.2 (a=b) \r\n"
                                        "\n"
                                        "=no key\nno equals\n#commented=1\n"
                                        "empty=\n"
                                        "twice=1\ntwice=2\n"
                                        "last=without newline");
    EXPECT_STREQ(store.get("switch.oem.short"), "brenmor");
    EXPECT_STREQ(store.get("firmware.appversion"), "1.2 (a=b)");
    EXPECT_STREQ(store.get("empty"), "");
    EXPECT_STREQ(store.get("twice"), "2");
    EXPECT_STREQ(store.get("last"), "without newline");
    for (const char* absent : {"", "no equals", "#commented", "commented", "SWITCH.OEM.SHORT"}) {
        EXPECT_EQ(store.get(absent), nullptr) << absent;
    }
    EXPECT_EQ(store.get(nullptr), nullptr);
    EXPECT_TRUE(mLog.lines().empty());
}

TEST_F(Attributes, UnreadableFilesAreLoggedAndLeaveTheStoreEmpty) {
    const std::string line = "key=value\n";
    EXPECT_EQ(stored(line + std::string(AttributeStore::kFileMaxBytes, '#')).get("key"), nullptr);
    EXPECT_STREQ(stored(line + std::string(AttributeStore::kFileMaxBytes - line.size(), '#')).get("key"),
                 "value");
    EXPECT_EQ(AttributeStore(mFolder.path() / "absent").get("key"), nullptr);
    EXPECT_EQ(AttributeStore(mFolder.path()).get("key"), nullptr) << "a folder";
    EXPECT_EQ(mLog.messages(2).size(), 3u);
}

} // namespace
