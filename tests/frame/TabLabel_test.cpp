#include "frame/TabLabel.h"
#include "tests/frame/PlainApp.h"

#include <Wt/WMenuItem>

#include <gtest/gtest.h>

namespace {

TEST(TabLabel, SignStandsAtMostOnce) {
    PlainApp app;
    struct {
        const char* label;
        bool changed;
        const char* shown;
    } rows[] = {
        {"Users", true, "Users*"},
        {"Users*", true, "Users*"},
        {"Users*", false, "Users"},
        {"Users", false, "Users"},
        {"", true, "*"},
        {"*", false, ""},
        {"Geräte", true, "Geräte*"},
    };
    for (const auto& row : rows) {
        Wt::WMenuItem item(Wt::WString::fromUTF8(row.label));
        MirlUtil_indicateChange(&item, row.changed);
        EXPECT_EQ(item.text().toUTF8(), row.shown) << row.label << (row.changed ? " changed" : " clean");
    }
}

TEST(TabLabel, PagesWithoutTabsHaveNoItem) {
    MirlUtil_indicateChange(nullptr, true);
}

} // namespace
