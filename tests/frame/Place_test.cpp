#include "frame/Place.h"

#include <gtest/gtest.h>

namespace {

TEST(Place, WordsOfTabs) {
    const struct {
        const char *key, *word;
    } rows[] = {{"[RSnnn]IPv4", "ipv4"},
                {"[RSnnn]OSD & Hotkey (all)", "osd-hotkey-all-"},
                {"main.Cascade", "main-cascade"},
                {"", ""}};
    for (const auto& row : rows) EXPECT_EQ(Place::word(row.key), row.word);
}

TEST(Place, NamesComeBackAsTheyWere) {
    const std::vector<std::string> lists[] = {
        {},
        {"00A702-020011"},
        {"a,b", "c/d", "100%", "~3", "%2C", "\xc3\xa9 x"},
        {"a", "", "b"},
    };
    for (const auto& names : lists) {
        const std::string part = Place::list(names);
        EXPECT_EQ(Place::names(part), names) << part;
        EXPECT_EQ(part.find_first_of("/~"), std::string::npos) << part;
    }
    EXPECT_EQ(Place::names("a%,%4,%zz,%41"), (std::vector<std::string>{"a%", "%4", "%zz", "A"}))
        << "foreign text";
}

TEST(Place, PartsAreTakenFromTheFront) {
    std::string_view path = "/devices//status";
    for (const char* part : {"devices", "", "status", "", ""}) EXPECT_EQ(Place::takePart(path), part);
    path = "devices/a";
    EXPECT_EQ(Place::takePart(path), "devices");
    EXPECT_EQ(path, "/a");
}

} // namespace
