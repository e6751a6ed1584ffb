// The road of the command line on the real service.
#include "platform/ctl/Command.h"
#include "tests/platform/support/ZeqdProcess.h"

#include <gtest/gtest.h>
#include <sstream>
#include <thread>

namespace {

struct Outcome {
    int code;
    std::string out;
    std::string err;
};

Outcome zeqctl(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out, err;
    const int code = zeqctl::run(arguments, in, out, err);
    return {code, out.str(), err.str()};
}

class ZeqctlOnDemo : public testing::Test {
protected:
    static void SetUpTestSuite() { sZeqd = std::make_unique<ZeqdProcess>(); }
    static void TearDownTestSuite() { sZeqd.reset(); }
    static std::unique_ptr<ZeqdProcess> sZeqd;
};
std::unique_ptr<ZeqdProcess> ZeqctlOnDemo::sZeqd;

TEST_F(ZeqctlOnDemo, WhatIsSetIsReadBackAfterARestart) {
    EXPECT_EQ(zeqctl({"set", "rx", "3", "name=Desk \"3\"", "sessionInactivityTimeout=15"}).err, "");
    EXPECT_EQ(zeqctl({"set", "swx", "1", "network/ipv4/ipAddress=10.0.0.9"}).err, "");
    sZeqd->stop();
    sZeqd->start();
    EXPECT_EQ(zeqctl({"get", "rx", "3", "name"}).out, "Desk \"3\"\n");
    EXPECT_EQ(zeqctl({"get", "rx", "3", "sessionInactivityTimeout"}).out, "15\n");
    EXPECT_EQ(zeqctl({"get", "swx/network/ipv4", "1", "ipAddress"}).out, "10.0.0.9\n");
}

TEST_F(ZeqctlOnDemo, CreateReadDelete) {
    const Outcome created =
        zeqctl({"create", "user", "name=night", "fullName=Night shift", "role=user", "password=@-"},
               "a-Night-2-watch\n");
    ASSERT_EQ(created.code, 0) << created.err;
    const std::string index = created.out.substr(0, created.out.size() - 1);
    EXPECT_EQ(zeqctl({"get", "user", index, "fullName"}).out, "Night shift\n");
    EXPECT_EQ(zeqctl({"create", "user", "name=night", "role=user", "password=another-1"}).code, 1)
        << "names are unique";
    EXPECT_EQ(zeqctl({"delete", "user", index}).code, 0);
    EXPECT_EQ(zeqctl({"get", "user", index, "name"}).code, 1);
}

TEST_F(ZeqctlOnDemo, EveryResourceOfTheCatalogueCanBeDescribedAndListed) {
    std::istringstream resources(zeqctl({"__complete", "", "get"}).out);
    int count = 0;
    for (std::string resource; std::getline(resources, resource); ++count) {
        EXPECT_EQ(zeqctl({"describe", resource}).code, 0) << resource;
        const Outcome listed = zeqctl({"list", resource});
        const bool readable = zeqctl({"describe", resource}).out.find("methods: get") != std::string::npos;
        EXPECT_EQ(listed.code, readable ? 0 : 1) << resource << ": " << listed.err;
        EXPECT_EQ(listed.out.find("$argon2"), std::string::npos) << resource << " shows a hash";
    }
    EXPECT_GT(count, 20);
}

TEST_F(ZeqctlOnDemo, ListsAreForPeopleAndSingleValuesForScripts) {
    EXPECT_TRUE(zeqctl({"list", "systemGlobals"}).out.starts_with("managedSetting  ")) << "one key a line";
    const std::string sessions = zeqctl({"list", "connection"}).out;
    EXPECT_NE(sessions.find("rxEid"), std::string::npos) << "headings are the keys, as get and set take them";
    const std::string start = zeqctl({"get", "connection", "1", "sessionStartTime"}).out;
    EXPECT_EQ(start.find_first_not_of("0123456789\n"), std::string::npos) << start;
    EXPECT_EQ(sessions.find(start.substr(0, 10)), std::string::npos) << "times are shown as times";
    EXPECT_NE(zeqctl({"list", "receivers"}).err.find("'receivers'; zeqctl describe lists them"),
              std::string::npos);
    EXPECT_NE(zeqctl({"get", "rx", "1", "nam"}).err.find("zeqctl describe rx lists the keys"),
              std::string::npos);
}

TEST_F(ZeqctlOnDemo, SecretsCanBeSetButAreNeverShown) {
    EXPECT_EQ(zeqctl({"set", "user", "3", "password=@-"}, "n3w-Secret-word\n").err, "");
    for (const std::vector<std::string>& read :
         {std::vector<std::string>{"get", "user", "3"},
          {"get", "user", "3", "--json"},
          {"get", "user", "3", "password"},
          {"list", "user", "name", "password"},
          {"set", "user", "3", "name=admin", "password=n3w-Secret-word"}}) {
        const Outcome outcome = zeqctl(read);
        EXPECT_EQ((outcome.out + outcome.err).find("n3w-Secret"), std::string::npos)
            << testing::PrintToString(read);
    }
    EXPECT_EQ(sZeqd->log().find("n3w-Secret"), std::string::npos);
}

TEST_F(ZeqctlOnDemo, UsersAreLoggedInAndOutByTheirNames) {
    EXPECT_EQ(zeqctl({"login", "supervisor", "Desk 4"}).err, "");
    EXPECT_EQ(zeqctl({"login", "supervisor", "00A702-020088"}).code, 0);
    EXPECT_NE(zeqctl({"list", "userSession", "userIndex=2", "rxIndex"}).out.find("8"), std::string::npos);
    EXPECT_EQ(zeqctl({"login", "mhansen", "Desk 4"}).code, 1) << "somebody is there";
    EXPECT_EQ(zeqctl({"logout", "Desk 4"}).code, 0);
    EXPECT_EQ(zeqctl({"logout", "Desk 4"}).err, "zeqctl: nobody is logged in there\n");
    EXPECT_EQ(zeqctl({"login", "nobody", "Desk 4"}).err, "zeqctl: no user is named nobody\n");
    EXPECT_EQ(zeqctl({"logout", "No desk"}).err, "zeqctl: no rx is named No desk\n");
    EXPECT_EQ(zeqctl({"alert", "enableAlertFanFault", "Fan 9"}).code, 0);
    EXPECT_NE(zeqctl({"list", "unacknowledgedAlerts", "alertMsg"}).out.find("Fan 9"), std::string::npos);
}

TEST_F(ZeqctlOnDemo, DevicesGoAwayAndComeBack) {
    std::string eid = zeqctl({"get", "rx", "5", "eid"}).out;
    eid.pop_back();
    EXPECT_EQ(zeqctl({"time", "faster", "1000"}).err, "");
    EXPECT_EQ(zeqctl({"device", "offline", eid}).err, "");
    EXPECT_EQ(zeqctl({"get", "rx", "5", "status"}).out, "offline\n");
    EXPECT_EQ(zeqctl({"device", "online", eid}).err, "");
    std::string status = "offline\n";
    for (int look = 0; look < 3000 && status == "offline\n"; ++look) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        status = zeqctl({"get", "rx", "5", "status"}).out;
    }
    EXPECT_NE(status, "offline\n");
    EXPECT_EQ(zeqctl({"device", "offline", "ZZZZZZ-ZZZZZZ"}).code, 1);
    EXPECT_NE(zeqctl({"__complete", "", "device", "offline"}).out.find(eid + "\n"), std::string::npos);
}

} // namespace
