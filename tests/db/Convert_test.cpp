#include "db/Convert.h"

#include "db/StringLookup.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(Convert, NumbersFromText) {
    const struct {
        const char* text;
        unsigned value, result;
    } rows[] = {
        {"0", 0, 0},
        {"", 0, 0},
        {"12", 12, 0},
        {"12x", 12, 1},
        {"x12", 0, 1},
        {"4294967295", 4294967295U, 0},
        {"4294967296", 4294967295U, 0},
        {"99999999999999999999999", 4294967295U, 0},
        {"007", 7, 0},
        {"0x10", 0, 1},
        {"1 ", 1, 1},
        {"1.5", 1, 1},
    };
    for (const auto& r : rows) {
        unsigned value = 4711;
        EXPECT_EQ(Convert_stringToUInt32(r.text, value), r.result) << r.text;
        EXPECT_EQ(value, r.value) << r.text;
    }
    unsigned value = 0;
    EXPECT_EQ(Convert_stringToUInt32(std::string("12\0", 3), value), 1U) << "a NUL is no end of the text";
}

TEST(Convert, UnknownStringsTakeTheStatedNumber) {
    const char* const unknown[] = {"", "Ready", "ready ", "offlin", "a value of tomorrow"};
    for (const char* text : unknown) {
        EXPECT_EQ(Convert_deviceStatusStringToEnum(text), Info_DeviceStatus::Offline) << text;
        EXPECT_EQ(Convert_swxStatusStringToEnum(text), Info_SwxStatus::Offline) << text;
        EXPECT_EQ(Convert_deviceUpgradeStatusStringToEnum(text), Info_DeviceUpgradeStatus::Idle) << text;
        EXPECT_EQ(Convert_deviceUsageStringToEnum(text), Info_DeviceUsage::Usable) << text;
        EXPECT_EQ(Convert_functionKeyStringToEnum(text), Info_FunctionKey::None) << text;
        EXPECT_EQ(Convert_accessModeDbStringToEnum(text), Info_AccessMode::ShareOrPrivate) << text;
    }
}

TEST(Convert, AConnectionHasOneOfTwoModesOrNone) {
    EXPECT_EQ(Convert_connectionModeDbStringToEnum("share_mode"), Info_ConnectionMode::Share);
    EXPECT_EQ(Convert_connectionModeDbStringToEnum("private_mode"), Info_ConnectionMode::Private);
    for (const char* text : {"", "share_or_private_mode", "Share_mode", "odd"})
        EXPECT_EQ(Convert_connectionModeDbStringToEnum(text), Info_ConnectionMode::None) << text;
}

TEST(Convert, FunctionKeysAndActionsThereAndBack) {
    for (unsigned i = 2; i <= 13; ++i) {
        const auto key = static_cast<Info_FunctionKey>(i);
        EXPECT_EQ(Convert_functionKeyEnumToZeqString(key), "f" + std::to_string(i - 1));
        EXPECT_EQ(Convert_functionKeyStringToEnum(Convert_functionKeyEnumToZeqString(key)), key);
    }
    for (unsigned outside : {0U, 1U, 14U, 4294967295U})
        EXPECT_STREQ(Convert_functionKeyEnumToZeqString(static_cast<Info_FunctionKey>(outside)), "none");
    for (unsigned i = 1; i <= 10; ++i) {
        const auto action = static_cast<Info_OsdCommonAction>(i);
        EXPECT_EQ(Convert_osdCommonActionStringToEnum(Convert_osdCommonActionEnumToZeqString(action)),
                  action);
    }
    for (unsigned outside : {0U, 11U})
        EXPECT_STREQ(Convert_osdCommonActionEnumToZeqString(static_cast<Info_OsdCommonAction>(outside)), "");
}

TEST(Convert, DateInLocalTimeWithoutLeadingZerosInMonthAndDay) {
    const char* zone = std::getenv("TZ");
    const std::string before = zone ? zone : "";
    setenv("TZ", "UTC-2", 1); // two hours ahead of UTC
    tzset();
    const struct {
        long seconds;
        const char* text;
    } rows[] = {
        {0, "1970-1-1 02:00:00"},
        {1709802300, "2024-3-7 11:05:00"},
        {1735682399, "2024-12-31 23:59:59"}, // the last second of a year
        {1735682400, "2025-1-1 00:00:00"},
    };
    for (const auto& r : rows) {
        char buffer[64];
        Convert_dateTimeStampToString(r.seconds, buffer, sizeof buffer);
        EXPECT_STREQ(buffer, r.text);
    }
    char little[8] = "";
    Convert_dateTimeStampToString(0, little, sizeof little);
    EXPECT_STREQ(little, "1970-1-");
    char none = 'x';
    Convert_dateTimeStampToString(0, &none, 0);
    EXPECT_EQ(none, 'x');
    if (zone)
        setenv("TZ", before.c_str(), 1);
    else
        unsetenv("TZ");
    tzset();
}

TEST(StringLookup, TheFirstMatchWinsFromEitherSide) {
    constexpr StringLookup::Pair pairs[] = {{"a", "1"}, {"b", "2"}, {"a", "3"}, {"c", "2"}};
    const StringLookup lookup(pairs);
    EXPECT_STREQ(lookup.keyToValue("a"), "1");
    EXPECT_STREQ(lookup.valueToKey("2"), "b");
    EXPECT_STREQ(lookup.valueToKey("3"), "a");
    EXPECT_EQ(lookup.keyToValue("A"), nullptr);
    EXPECT_EQ(lookup.keyToValue(""), nullptr);
    EXPECT_EQ(StringLookup(nullptr, 0).keyToValue("a"), nullptr);
}

} // namespace
