#include "shell/MirlPath.h"

#include <gtest/gtest.h>

namespace {

TEST(MirlPath, BrandByNameInAnyCaseElseUnknown) {
    struct {
        const char* attribute;
        const char* folder;
        const char* maker;
    } rows[] = {
        {"brenmor", "brenmor", "[RSnnn]Ferrand"},
        {"CALVEX", "calvex", "[RSnnn]Ferrand"},
        {"Dunmere", "dunmere", "[RSnnn]Dunmere"},
        {"unknown", "unknown", nullptr},
        {"", "unknown", nullptr},
        {"../brenmor", "unknown", nullptr},
        {"brenmor ", "unknown", nullptr},
    };
    for (const auto& row : rows) {
        const MirlBrand& brand = MirlPath_brandNamed(row.attribute);
        EXPECT_STREQ(brand.name, row.folder) << row.attribute;
        EXPECT_STREQ(brand.makerKey, row.maker) << row.attribute;
    }
}

TEST(MirlPath, IconNumbersHaveTwoDigitsAtLeast) {
    const std::string base = MirlPath_iconsBase();
    EXPECT_EQ(base, std::string("/data/settings/icons/") + MirlPath_brand().name + "/");
    EXPECT_EQ(MirlPath_iconFileName(7), base + "icon07.png");
    EXPECT_EQ(MirlPath_iconFileName(0), base + "icon00.png");
    EXPECT_EQ(MirlPath_iconFileName(4294967295U), base + "icon4294967295.png");
}

} // namespace
