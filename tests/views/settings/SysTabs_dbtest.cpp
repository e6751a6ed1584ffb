// The tabs of the system's settings: what is read, judged, stored and thrown away.

#include "db/ZeqExchange.h"
#include "tests/platform/support/LogCapture.h"
#include "tests/views/settings/SettingsPage.h"
#include "widgets/WLineEditZeq.h"

#include <gmock/gmock.h>

namespace {

using testing::HasSubstr;

class SysTabs : public SettingsPage {
protected:
    static std::string global(const char* key) { return stored("systemGlobals", 0, key); }
};

TEST_F(SysTabs, EachTabStoresWhatWasTypedAndOnlyThat) {
    const struct {
        const char* tab;
        const char* resource;
        const char* key;
        const char* text;
        const char* untouched; // another key of the same tab
    } rows[] = {
        {"Manager", "systemGlobals", "switchApiPort", "8443", "managerApiPort"},
        {"MIRL", "systemGlobals", "mirlBannerText", "Staff only.\nKeep out.", "mirlCustomHelpLink"},
        {"OSD", "systemGlobals", "rxOsdBannerText", "Call 2100", "rxOsdHotKey"},
        {"Defaults", "cfgDefaults", "rxDefaultSessionInactivityTimeout", "7",
         "rxDefaultOsdInactivityTimeout"},
        {"Other", "systemGlobals", "backlightFlashDuration", "86400", "resetAfterUpgrade"},
    };
    for (const auto& row : rows) {
        const std::string before = stored(row.resource, 0, row.untouched);
        showTab(row.tab);
        EXPECT_EQ(actions(), "XXXX") << row.tab;
        EXPECT_EQ(buttons(), "..") << row.tab;
        type(row.key, row.text);
        EXPECT_EQ(actions(), "....") << row.tab;
        EXPECT_EQ(buttons(), "SC") << row.tab;
        tick();
        EXPECT_EQ(text(row.key), row.text) << row.tab << ": a refresh leaves what was typed";
        save();
        EXPECT_EQ(stored(row.resource, 0, row.key), row.text) << row.tab;
        EXPECT_EQ(stored(row.resource, 0, row.untouched), before) << row.tab;
        EXPECT_EQ(buttons() + actions(), "..XXXX") << row.tab;
    }
}

TEST_F(SysTabs, WhatTheSwitchWouldRefuseCannotBeSaved) {
    const struct {
        const char* tab;
        const char* key;
        std::string text;
        bool valid;
    } rows[] = {
        {"Manager", "managerApiPort", "65535", true},
        {"Manager", "managerApiPort", "65536", false},
        {"MIRL", "mirlInactivityTimeout", "1440", true},
        {"MIRL", "mirlInactivityTimeout", "1441", false},
        {"MIRL", "mirlInactivityTimeout", "", false},
        {"MIRL", "mirlBannerText", std::string(1024, 'x'), true},
        {"MIRL", "mirlBannerText", std::string(1025, 'x'), false},
        {"MIRL", "mirlCustomHelpLink", "", true},
        {"MIRL", "mirlCustomHelpLink", "https://help.example/mirl", true},
        {"MIRL", "mirlCustomHelpLink", "ftp://help.example/", false},
        {"MIRL", "mirlCustomHelpLink", "javascript:alert(1)", false},
        {"OSD", "rxOsdBannerText", std::string(450, 'x'), true},
        {"OSD", "rxOsdBannerText", std::string(451, 'x'), false},
        {"Other", "backlightFlashDuration", "0", false},
        {"Other", "backlightFlashDuration", "1", true},
        {"Remote Access", "telnetPort", "1023", false},
        {"Remote Access", "telnetPort", "1024", true},
        {"Events", "syslogDest", "10.0.0.256", false},
        {"Events", "syslogDest", "fe80::1", true},
    };
    store("systemGlobals", 0, "mirlCustomHelpLink", "http://a");
    for (const auto& row : rows) {
        showTab(row.tab);
        type(row.key, row.text);
        EXPECT_EQ(buttons(), row.valid ? "SC" : ".C") << row.key << " '" << row.text.substr(0, 40) << "'";
        cancel();
        EXPECT_EQ(buttons(), "..") << row.key;
        EXPECT_EQ(actions(), "XXXX") << row.key;
    }
}

TEST_F(SysTabs, CancelShowsWhatIsStored) {
    showTab("Other");
    const std::string before = text("backlightFlashDuration");
    type("backlightFlashDuration", "77");
    cancel();
    EXPECT_EQ(text("backlightFlashDuration"), before);
    EXPECT_EQ(global("backlightFlashDuration"), before);
}

TEST_F(SysTabs, ANewTimeLimitHoldsForTheRunningSession) {
    showTab("MIRL");
    type("mirlInactivityTimeout", "3");
    save();
    session.probe().userEvent();
    clock.advance(179);
    session.probe().timerEvent();
    EXPECT_FALSE(session.app().isQuited());
    clock.advance(2);
    session.probe().timerEvent();
    EXPECT_TRUE(session.app().isQuited());
}

TEST_F(SysTabs, TheRemotePasswordIsStoredWhenItIsRepeated) {
    showTab("Remote Access");
    const auto fields = widgetsIn<WLineEditZeq>(view->details());
    std::vector<WLineEditZeq*> pair;
    for (WLineEditZeq* field : fields)
        if (std::string(field->key()) == "sshPassword") pair.push_back(field);
    ASSERT_EQ(pair.size(), 2U);
    const auto enter = [](WLineEditZeq& field, const char* text) {
        field.Wt::WLineEdit::setText(text);
        field.blurred().emit();
    };
    enter(*pair[0], "secret-1");
    EXPECT_EQ(buttons(), ".C");
    EXPECT_TRUE(pair[1]->hasStyleClass("Wt-invalid"));
    enter(*pair[1], "secret-2");
    EXPECT_EQ(buttons(), ".C");
    enter(*pair[1], "secret-1");
    EXPECT_EQ(buttons(), "SC");
    EXPECT_FALSE(pair[1]->hasStyleClass("Wt-invalid"));
    const LogCapture log;
    save();
    EXPECT_EQ(buttons(), "..");
    EXPECT_EQ(pair[0]->text(), "") << "it is never shown";
    for (const auto& line : log.lines()) EXPECT_THAT(line.message, testing::Not(HasSubstr("secret-1")));
}

TEST_F(SysTabs, AManagedSwitchCanOnlyLeave) {
    poke("systemGlobals", 0, "managedSetting", "verified");
    showTab("Other");
    showTab("Manager");
    EXPECT_EQ(text("managedSetting"), "Managed (fully enrolled)");
    choose("managedSetting", 0);
    EXPECT_EQ(buttons(), "SC");
    save();
    EXPECT_THAT(global("managedSetting"), testing::AnyOf("unenrolling", "non_managed"));
}

TEST_F(SysTabs, AnUnsavedTabKeepsThePageFromBeingRead) {
    showTab("Other");
    type("backlightFlashDuration", "77");
    showTab("Defaults");
    store("cfgDefaults", 0, "rxDefaultOsdInactivityTimeout", 11U);
    tick();
    EXPECT_NE(text("rxDefaultOsdInactivityTimeout"), "11");
    EXPECT_EQ(actions(), "....");
    showTab("Other");
    EXPECT_EQ(text("backlightFlashDuration"), "77") << "coming back to it reads nothing";
    cancel();
    showTab("Defaults");
    EXPECT_EQ(text("rxDefaultOsdInactivityTimeout"), "11");
}

TEST_F(SysTabs, ARefreshCostsOneRequestAResource) {
    const struct {
        const char* tab;
        unsigned long exchanges;
    } rows[] = {{"Manager", 1},  {"MIRL", 1},  {"OSD", 1},          {"Events", 3},
                {"Defaults", 1}, {"Other", 1}, {"Remote Access", 1}};
    for (const auto& row : rows) {
        showTab(row.tab);
        const unsigned long before = zeqExchangeCount();
        tick();
        EXPECT_EQ(zeqExchangeCount() - before, row.exchanges) << row.tab;
    }
}

} // namespace
