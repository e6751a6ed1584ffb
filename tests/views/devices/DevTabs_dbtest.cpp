// The tabs of the details pane: what each shows, locks and stores.

#include "db/ZeqExchange.h"
#include "tests/views/devices/DevicesPage.h"
#include "views/devices/tabs/UsbDiagTable.h"
#include "views/devices/tabs/WDevViewRxVideo.h"
#include "views/devices/tabs/WDevViewTxSesStatus.h"

#include <Wt/WComboBox>
#include <Wt/WLineEdit>
#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

namespace {

class DevTabs : public DevicesPage {
protected:
    void show(const std::vector<std::string>& names, const std::string& title) {
        select(names);
        showTab(title);
    }
    bool enabled(const std::string& key) { return !field<Wt::WWidget>(key)->isDisabled(); }
    bool canSave() { return !tab().saveButton()->isDisabled(); }

    template <class Table>
    Table* table() {
        const auto found = widgetsIn<Table>(view->details());
        return found.empty() ? nullptr : found[0];
    }
    std::string values(Wt::WTable* usb) {
        std::string all;
        for (int row = 1; row < usb->rowCount(); ++row) all += textIn(usb->elementAt(row, 1));
        return all;
    }
};

TEST_F(DevTabs, AutomaticLoginNeedsAUserOfASingleReceiver) {
    show({"Desk 4"}, "Settings");
    EXPECT_FALSE(enabled("autoLoginUserIndex"));
    EXPECT_FALSE(enabled("autoConnectTxEid"));
    EXPECT_FALSE(enabled("autoConnectMode"));
    choose("autoLoginControl", 0);
    EXPECT_TRUE(enabled("autoLoginUserIndex"));
    EXPECT_FALSE(canSave()) << "no user is chosen";
    auto* users = field<Wt::WComboBox>("autoLoginUserIndex");
    choose("autoLoginUserIndex", users->findText("wall"));
    EXPECT_TRUE(canSave());
    save();
    EXPECT_EQ(stored("rx", 7, "autoLoginUserIndex"), "8");
    EXPECT_EQ(stored("rx", 7, "autoLoginControl"), "enabled");
    EXPECT_EQ(text("autoLoginUserIndex"), "wall");

    show({"Desk 4", "Desk 5"}, "Settings");
    choose("autoLoginControl", 0);
    EXPECT_TRUE(canSave()) << "several Receivers may differ in it";
    cancel();
}

TEST_F(DevTabs, ReceiverTimeoutsHaveLimits) {
    store("rx", 7, "sessionInactivityTimeout", 30u);
    store("rx", 7, "sharingInactivityTimeout", 3u);
    show({"Desk 4"}, "Settings");
    const struct {
        const char *key, *text;
        bool valid;
    } rows[] = {
        {"sessionInactivityTimeout", "0", true},     {"sessionInactivityTimeout", "1440", true},
        {"sessionInactivityTimeout", "1441", false}, {"sessionInactivityTimeout", "-1", false},
        {"sharingInactivityTimeout", "25", true},    {"sharingInactivityTimeout", "26", false},
        {"sharingInactivityTimeout", "", false},     {"sharingInactivityTimeout", "1x", false},
    };
    for (const auto& row : rows) {
        type(row.key, row.text);
        EXPECT_EQ(canSave(), row.valid) << row.key << " = " << row.text;
        cancel();
    }
}

TEST_F(DevTabs, VideoShowsTimingsAndTheFrequenciesMadeFromThem) {
    show({"Desk 1 Left"}, "Video"); // connected to a Transmitter
    auto* video = table<WDevViewRxVideoTable>();
    ASSERT_NE(video, nullptr);
    const auto value = [&](int row) {
        const std::string text = textIn(video->elementAt(row, 1));
        return text.substr(0, text.find('\n'));
    };
    EXPECT_NE(value(2), "") << "resolution";
    EXPECT_NE(value(3).find('.'), std::string::npos) << "pixel clock in MHz: " << value(3);
    EXPECT_GT(std::stoi(value(5)), 14) << "kHz";
    EXPECT_GT(std::stoi(value(11)), 22) << "Hz";
    const std::string before = textIn(video);
    select({"Training"}); // offline
    EXPECT_EQ(textIn(video), before) << "a Receiver that is not ready leaves the values";
}

TEST_F(DevTabs, UsbOfAReceiverAndItsTransmitter) {
    show({"Desk 1 Left"}, "USB");
    const auto tables = widgetsIn<UsbDiagTable>(view->details());
    ASSERT_GE(tables.size(), 2u); // Transmitter's side, then Receiver's
    EXPECT_NE(values(tables[0]).find("0x"), std::string::npos);
    EXPECT_NE(values(tables[1]).find("0x"), std::string::npos);

    select({"Desk 4"}); // ready, not connected
    EXPECT_EQ(values(tables[0]).find_first_not_of('\n'), std::string::npos);
    EXPECT_NE(values(tables[1]).find("0x"), std::string::npos);

    for (const auto& names : {std::vector<std::string>{"Desk 1 Left", "Desk 4"}, {"Training"}}) {
        select(names);
        EXPECT_EQ((values(tables[0]) + values(tables[1])).find_first_not_of('\n'), std::string::npos)
            << names[0];
    }
}

TEST_F(DevTabs, SessionsOfATransmitterAreItsOwn) {
    show({"SCADA A"}, "Sessions"); // shared by Receivers 1 and 10
    auto* sessions = table<WDevViewTxSesStatusTable>();
    ASSERT_NE(sessions, nullptr);
    ASSERT_EQ(sessions->model()->rowCount(), 2);
    EXPECT_EQ(boost::any_cast<std::string>(sessions->model()->data(0, 1, Wt::EditRole)), "Desk 1 Left");
    select({"SCADA A", "SCADA B"});
    EXPECT_EQ(sessions->model()->rowCount(), 0);
    select({"Weather"});
    EXPECT_EQ(sessions->model()->rowCount(), 0);
}

TEST_F(DevTabs, TheMacAddressCountsWhileWakeOnLanIsOn) {
    show({"SCADA A"}, "Settings");
    choose("wakeOnLan", 0);
    EXPECT_TRUE(enabled("wakeOnLanMacAddress"));
    type("wakeOnLanMacAddress", "00:11:22:33:44");
    EXPECT_FALSE(canSave());
    type("wakeOnLanMacAddress", "00:11:22:33:44:5f");
    EXPECT_TRUE(canSave());
    type("wakeOnLanMacAddress", "nonsense");
    choose("wakeOnLan", 1);
    EXPECT_FALSE(enabled("wakeOnLanMacAddress"));
    EXPECT_TRUE(canSave());
    cancel();
}

TEST_F(DevTabs, TheModeBelongsToThisSwitchAloneAndWarnsOnceAMinute) {
    show({"Annex Switch"}, "Mode");
    EXPECT_FALSE(enabled("mode"));
    select({"Annex Switch", "Main Hall Switch"});
    EXPECT_FALSE(enabled("mode"));
    select({"Main Hall Switch"});
    EXPECT_TRUE(enabled("mode"));
    clock.advance(3600);
    answerWith("Close");
    choose("mode", 1);
    choose("mode", 0);
    clock.advance(60);
    choose("mode", 1);
    EXPECT_EQ(shown.size(), 1u);
    clock.advance(1);
    answerWith("Close");
    choose("mode", 0);
    EXPECT_EQ(shown.size(), 2u);
    EXPECT_TRUE(canSave());
    cancel();
    EXPECT_EQ(stored("swx", 1, "mode"), "master");
}

TEST_F(DevTabs, ANewAddressOfThisSwitchIsToldAndOfAnotherIsNot) {
    for (const std::string& name : {std::string("Annex Switch"), std::string("Main Hall Switch")}) {
        select({name});
        showTab("IPv4");
        type("ipAddress", "10.20.1.77");
        if (name == "Main Hall Switch") answerWith("Close");
        save();
        EXPECT_EQ(shown.size(), name == "Main Hall Switch" ? 1U : 0U) << name;
    }
    EXPECT_NE(shown.front().find("new address"), std::string::npos);
}

TEST_F(DevTabs, IpV4FollowsTheMethodAndIsNotForSeveral) {
    show({"Annex Switch"}, "IPv4");
    EXPECT_EQ(text("ipAddress"), "10.20.1.11");
    EXPECT_TRUE(enabled("ipAddress")); // static
    type("ipAddress", "256.1.1.1");
    EXPECT_FALSE(canSave());
    type("ipAddress", "");
    EXPECT_FALSE(canSave()) << "an address is needed";
    choose("ipv4ConfMethod", 0);
    EXPECT_TRUE(canSave()) << "no static configuration, no address";
    EXPECT_FALSE(enabled("ipAddress"));
    EXPECT_TRUE(enabled("subnetMask"));
    cancel();
    type("ipAddress", "10.20.1.99");
    save();
    EXPECT_EQ(text("ipAddress"), "10.20.1.99");
    EXPECT_EQ(text("subnetMask"), "255.255.255.0");

    select({"Annex Switch", "Main Hall Switch"});
    EXPECT_EQ(text("gatewayAddress"), "10.20.1.1") << "what they have in common";
    EXPECT_EQ(text("ipAddress"), "");
    for (const char* key : {"ipv4ConfMethod", "ipAddress", "subnetMask", "gatewayAddress"})
        EXPECT_FALSE(enabled(key)) << key;
    select({"Main Hall Switch"});
    for (const char* key : {"ipv4ConfMethod", "ipAddress", "subnetMask", "gatewayAddress"})
        EXPECT_TRUE(enabled(key)) << key << " after several were selected";
}

TEST_F(DevTabs, IpV6PrefixHasLimitsAndAllAddressesFollowTheMethod) {
    show({"Annex Switch"}, "IPv6");
    for (const char* key : {"ipAddress", "prefixLength", "gatewayAddress"}) EXPECT_FALSE(enabled(key)) << key;
    choose("ipv6ConfMethod", 3); // static
    for (const char* key : {"ipAddress", "prefixLength", "gatewayAddress"}) EXPECT_TRUE(enabled(key)) << key;
    const struct {
        const char* prefix;
        bool valid;
    } rows[] = {{"0", false}, {"1", true}, {"128", true}, {"129", false}};
    for (const auto& row : rows) {
        type("prefixLength", row.prefix);
        EXPECT_EQ(canSave(), row.valid) << row.prefix;
    }
    cancel();
}

TEST_F(DevTabs, NtpOffShowsInactiveAndSavingOnEmptiesTheStatus) {
    show({"Annex Switch"}, "NTP");
    EXPECT_TRUE(enabled("primaryNtpIpAddress"));
    EXPECT_EQ(text("ntpStatus"), "Successful");
    choose("ntpEnable", 1);
    EXPECT_FALSE(enabled("primaryNtpIpAddress"));
    EXPECT_TRUE(enabled("secondaryNtpIpAddress")) << "it follows at the next read";
    save();
    EXPECT_EQ(stored("swx", 2, "ntpEnable"), "disabled");
    EXPECT_EQ(text("ntpStatus"), "") << "the old status says nothing about the new settings";
    select({"Main Hall Switch"});
    select({"Annex Switch"});
    EXPECT_EQ(text("ntpStatus"), "Inactive");
    EXPECT_FALSE(enabled("secondaryNtpIpAddress"));
}

TEST_F(DevTabs, OnlyTheTabOnShowIsRead) {
    show({"Desk 4"}, "Status");
    showTab("Attributes");
    const unsigned long before = zeqExchangeCount();
    view->readFromDatabase(true, false);
    // The news, and the Receiver.
    EXPECT_EQ(zeqExchangeCount() - before, 2u);
}

// What was typed before a choice ruled it out keeps nothing else from being saved.
TEST_F(DevTabs, WhatIsDisabledOrInvalidIsNotSaved) {
    show({"SCADA A"}, "Settings");
    choose("wakeOnLan", 0);
    type("wakeOnLanMacAddress", "nonsense");
    choose("wakeOnLan", 1);
    choose("usbMode", 1);
    save();
    EXPECT_EQ(stored("tx", 1, "usbMode"), "keyboard_mouse_only");
    EXPECT_NE(stored("tx", 1, "wakeOnLanMacAddress"), "nonsense");

    show({"Annex Switch"}, "IPv4");
    type("ipAddress", "256.1.1.1");
    choose("ipv4ConfMethod", 0);
    save();
    EXPECT_EQ(field<Wt::WComboBox>("ipv4ConfMethod")->currentIndex(), 0);

    store("rx", 7, "sessionInactivityTimeout", 30u);
    store("rx", 8, "sessionInactivityTimeout", 30u);
    show({"Desk 4", "Desk 5"}, "Settings");
    type("sessionInactivityTimeout", "");
    choose("usbMode", 1);
    save();
    EXPECT_EQ(stored("rx", 7, "usbMode"), "keyboard_mouse_only");
    EXPECT_EQ(stored("rx", 7, "sessionInactivityTimeout"), "30");
}

TEST_F(DevTabs, WhatIsRefusedIsTold) {
    const struct {
        const char *device, *tab, *resource, *key;
        unsigned index;
    } rows[] = {{"Desk 4", "Settings", "rx", "usbMode", 7},
                {"Weather", "Settings", "tx", "usbMode", 0},
                {"Annex Switch", "NTP", "swx", "ntpEnable", 2}};
    for (const auto& row : rows) {
        show({row.device}, row.tab);
        choose(row.key, 1);
        std::vector<std::string> errors;
        EXPECT_NE(tab().writeToDatabase({9999}, errors), 0u) << row.device;
        EXPECT_EQ(errors.size(), 1u) << row.device;
        cancel();
    }
}

TEST_F(DevTabs, FrequenciesOfSeveralReceiversAreMadeOfWhatTheyHaveInCommon) {
    show({"Desk 1 Left", "Desk 4"}, "Video");
    auto* video = table<WDevViewRxVideoTable>();
    ASSERT_NE(video, nullptr);
    int blanks = 0;
    for (int column = 1; column <= 3; ++column) {
        const auto value = [&](int row) {
            const std::string text = textIn(video->elementAt(row, column));
            return text.substr(0, text.find('\n'));
        };
        bool horizontal = true;
        for (const int row : {2, 3, 7, 8, 9}) horizontal = horizontal && !value(row).empty();
        bool all = horizontal;
        for (const int row : {13, 14, 15}) all = all && !value(row).empty();
        blanks += horizontal ? 0 : 1;
        if (!horizontal) {
            EXPECT_EQ(value(5), "") << column;
        }
        if (!all) {
            EXPECT_EQ(value(11), "") << column;
        }
    }
    EXPECT_GT(blanks, 0) << "the two differ";
}

} // namespace
