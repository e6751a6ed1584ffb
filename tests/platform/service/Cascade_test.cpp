// One installation seen from either of its two controllers, and under a manager: what each step does, and that no
// sequence of steps leads to a state without a way on.

#include "platform/service/sim/Steps.h"
#include "tests/platform/service/support/Harness.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace zeqd::testing {

namespace {

constexpr const char* kMain = "00A701-010001";
constexpr const char* kAnnex = "00A701-010002";

class Cascade : public ::testing::Test {
protected:
    int act(const std::string& action, int index = 1) {
        return service
            .set("swxControl",
                 R"({"cascadeRoleAction":")" + action + R"(","index":)" + std::to_string(index) + "}")
            .error();
    }
    int sim(const std::string& action, const std::string& eid = "") {
        return service
            .set("simControl",
                 R"({"action":")" + action + '"' + (eid.empty() ? "" : R"(,"eid":")" + eid + '"') + "}")
            .error();
    }
    std::string global(const char* key) {
        const Record& globals = service.engine->store().singleton(Res::SystemGlobals);
        const std::string_view name = key;
        return name.ends_with("Eid") ? globals.text(key) : std::string(globals.choice(key));
    }
    std::string swx(unsigned index, const char* key) {
        const RecordPtr record = service.engine->store().find(Res::Swx, index);
        return key == std::string("eid") ? record->text(key) : std::string(record->choice(key));
    }
    /// EID and role of record 1, then of record 2.
    std::string places() {
        return swx(1, "eid").substr(12) + ' ' + swx(1, "mode") + ' ' + swx(1, "cascadeRole") + ", " +
               swx(2, "eid").substr(12) + ' ' + swx(2, "mode") + ' ' + swx(2, "cascadeRole");
    }
    void standBy() {
        ASSERT_EQ(act("link_peer", 2), 0);
        service.pass(span::kPeerSync);
    }

    Harness service;
};

TEST_F(Cascade, TheViewGoesAlongWithTheController) {
    standBy();
    EXPECT_EQ(places(), "1 master controller, 2 slave backup");
    EXPECT_EQ(act("force_role_switch"), 0);
    EXPECT_EQ(places(), "2 slave controller, 1 master backup");
    EXPECT_EQ(global("masterSwitchEid"), kMain);
    EXPECT_EQ(global("cascadeController"), "peer");
    EXPECT_EQ(act("unlink_peer"), 1126) << "the master alone may";
    EXPECT_EQ(act("force_role_switch"), 0);
    EXPECT_EQ(places(), "1 master controller, 2 slave backup");
    EXPECT_EQ(global("cascadeController"), "master");
    EXPECT_EQ(act("promote_peer"), 1126) << "the master is the controller";
    EXPECT_EQ(act("unlink_peer"), 0);
    EXPECT_EQ(places(), "1 master controller, 2 slave not_present");
}

TEST_F(Cascade, PromotionMakesTheNewStateTheNormalOne) {
    standBy();
    ASSERT_EQ(act("force_role_switch"), 0);
    EXPECT_EQ(act("promote_peer"), 0);
    EXPECT_EQ(places(), "2 master controller, 1 slave backup");
    EXPECT_EQ(global("masterSwitchEid") + ' ' + global("peerControllerSwitchEid"),
              std::string(kAnnex) + ' ' + kMain);
    EXPECT_EQ(global("cascadeController"), "master");
}

TEST_F(Cascade, ABackupIsPromotedOnlyWhenItsControllerIsGoneWhichComesBackAsBackup) {
    standBy();
    ASSERT_EQ(sim("look"), 0);
    EXPECT_EQ(places(), "2 slave backup, 1 master controller");
    for (const char* action : {"promote_peer", "unlink_peer", "force_role_switch"})
        EXPECT_EQ(act(action), 1126) << action;
    EXPECT_EQ(service.set("swx", R"({"index":1,"mode":"master"})").error(), 1126);
    ASSERT_EQ(sim("link_down"), 0);
    EXPECT_EQ(swx(2, "status"), "offline");
    EXPECT_EQ(sim("look"), 1113) << "nobody can look from a Switch that is gone";
    EXPECT_EQ(act("promote_peer"), 0);
    EXPECT_EQ(places(), "2 master controller, 1 slave slave");
    service.pass(60000);
    EXPECT_EQ(places(), "2 master controller, 1 slave slave") << "it is still gone";
    ASSERT_EQ(sim("link_up"), 0);
    service.pass(60000);
    EXPECT_EQ(places(), "2 master controller, 1 slave backup");
    EXPECT_EQ(swx(2, "status"), "ready") << "no conflict: it is no master any more";
}

TEST_F(Cascade, WhatNamesASwitchByItsIndexFollowsIt) {
    // Switch, by EID, of every device.
    const auto devices = [this] {
        const View& store = service.engine->store();
        std::string all;
        for (const Res kind : {Res::Rx, Res::Tx})
            store.each(kind, [&](const RecordPtr& device) {
                all += device->text("eid") + " at " +
                       store.find(Res::Swx, device->number("simSwx"))->text("eid") + '\n';
                return true;
            });
        return all;
    };
    const std::string here = devices();
    ASSERT_EQ(sim("look"), 0);
    EXPECT_EQ(swx(1, "eid"), kAnnex);
    EXPECT_EQ(devices(), here);
}

TEST_F(Cascade, SessionsOfAdministratorsEndWithTheView) {
    standBy();
    ASSERT_EQ(
        service.create("adminSession", R"({"username":"admin","password":")" + std::string(kPassword) + "\"}")
            .error(),
        0);
    ASSERT_EQ(act("force_role_switch"), 0);
    EXPECT_EQ(service.get("adminSession").rowCount(), 0U);
}

TEST_F(Cascade, AnInterruptedCopyGoesOn) {
    ASSERT_EQ(act("link_peer", 2), 0);
    ASSERT_EQ(sim("link_down"), 0);
    service.pass(60000);
    EXPECT_EQ(places(), "1 master controller, 2 slave slave");
    ASSERT_EQ(sim("link_up"), 0);
    service.pass(60000);
    EXPECT_EQ(places(), "1 master controller, 2 slave backup");
    service.restart();
    EXPECT_EQ(places(), "1 master controller, 2 slave backup");
}

TEST_F(Cascade, OneMasterOnly) {
    EXPECT_EQ(service.set("swx", R"({"index":2,"mode":"master"})").error(), 0);
    EXPECT_EQ(places() + ' ' + swx(2, "status"),
              "1 master controller, 2 master not_present conflict_is_master");
    EXPECT_EQ(service.set("swx", R"({"index":2,"mode":"slave"})").error(), 0);
    ASSERT_EQ(sim("look"), 0);
    EXPECT_EQ(places(), "2 slave slave, 1 master controller");
    EXPECT_EQ(service.remove("swx", 2).error(), 1014) << "a slave's master";
    EXPECT_EQ(service.set("swx", R"({"index":1,"mode":"master"})").error(), 0);
    EXPECT_EQ(places() + ' ' + swx(2, "status"),
              "2 master controller, 1 master not_present conflict_is_master");
    EXPECT_EQ(global("masterSwitchEid"), kAnnex);
}

TEST_F(Cascade, TheMasterOfACascadeIsNotNamedByHand) {
    standBy();
    EXPECT_EQ(service.set("systemGlobals", R"({"masterSwitchEid":"00A701-010002"})").error(), 1126);
    EXPECT_EQ(global("masterSwitchEid"), kMain);
}

class Management : public Cascade {
protected:
    std::string managers() {
        return global("commStatusRestClientPrimary") + ' ' + global("commStatusRestClientAuxiliary") + ' ' +
               global("currentManager");
    }
    int enrol(const char* address = "10.20.1.90") {
        return service
            .set("systemGlobals",
                 R"({"managedSetting":"enrolling","managerIpAddress":")" + std::string(address) + "\"}")
            .error();
    }
};

TEST_F(Management, EnrolsInStepsAndLeaves) {
    EXPECT_NE(enrol(""), 0);
    ASSERT_EQ(enrol(), 0);
    const char* steps[] = {"enrolling", "managed", "verified", "verified"};
    for (const char* step : steps) {
        EXPECT_EQ(global("managedSetting"), step);
        EXPECT_EQ(managers(), step == std::string("verified") ? "up down primary" : "down down none");
        service.pass(span::kEnrol);
    }
    ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"unenrolling"})").error(), 0);
    EXPECT_EQ(managers(), "down down none");
    service.pass(span::kEnrol);
    EXPECT_EQ(global("managedSetting"), "non_managed");
}

TEST_F(Management, StatesFollowAddressesAndManagers) {
    ASSERT_EQ(enrol(), 0);
    service.pass(2 * span::kEnrol);
    const auto write = [this](const char* params) { return service.set("systemGlobals", params).error(); };
    ASSERT_EQ(write(R"({"auxiliaryManagerIpAddress":"10.20.1.91"})"), 0);
    EXPECT_EQ(managers(), "up up primary");
    ASSERT_EQ(sim("manager_down"), 0);
    EXPECT_EQ(managers(), "down up auxiliary");
    ASSERT_EQ(sim("manager_up"), 0);
    EXPECT_EQ(managers(), "up up primary");
    ASSERT_EQ(write(R"({"managerIpAddress":""})"), 0);
    EXPECT_EQ(managers(), "down up auxiliary");
    ASSERT_EQ(write(R"({"auxiliaryManagerIpAddress":""})"), 0);
    EXPECT_EQ(managers(), "down down none");
}

TEST_F(Management, AManagerThatDoesNotAnswerIsGivenUp) {
    for (const int answersAfter : {1, 4, 5}) {
        ASSERT_EQ(sim("manager_down"), 0);
        ASSERT_EQ(enrol(), 0);
        service.pass(answersAfter * span::kEnrol);
        ASSERT_EQ(sim("manager_up"), 0);
        service.pass(3 * span::kEnrol);
        EXPECT_EQ(global("managedSetting"), answersAfter < 5 ? "verified" : "non_managed") << answersAfter;
        ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"non_managed"})").error(), 0);
    }
}

/// Tens of thousands of steps, each anything that a page, a program or the weather does.
TEST_F(Cascade, NoSequenceOfStepsLeadsToAStateWithoutAWayOn) {
    std::mt19937 random(17);
    const auto any = [&random](int below) {
        return static_cast<int>(random() % static_cast<unsigned>(below));
    };
    std::map<std::string, int> done;
    struct Action {
        const char* name;
        int weight; // rare where it ends what others need some time for
        std::function<int()> run;
    };
    const std::vector<Action> steps = {
        {"link", 8, [&] { return act("link_peer", any(4) == 0 ? 1 + any(3) : 2); }},
        {"unlink", 1, [&] { return act("unlink_peer"); }},
        {"switch", 6, [&] { return act("force_role_switch"); }},
        {"promote", 3, [&] { return act("promote_peer"); }},
        {"look", 3, [&] { return sim("look"); }},
        {"down", 1, [&] { return sim("link_down"); }},
        {"up", 3, [&] { return sim("link_up"); }},
        {"enrol", 2,
         [&] {
             return service
                 .set("systemGlobals", R"({"managedSetting":"enrolling","managerIpAddress":"10.0.0.1"})")
                 .error();
         }},
        {"leave", 2,
         [&] { return service.set("systemGlobals", R"({"managedSetting":"unenrolling"})").error(); }},
        {"manager", 2, [&] { return sim(any(2) == 0 ? "manager_down" : "manager_up"); }},
        {"mode", 1,
         [&] {
             return service
                 .set("swx", R"({"index":)" + std::to_string(1 + any(2)) + R"(,"mode":")" +
                                 (any(2) == 0 ? "master" : "slave") + "\"}")
                 .error();
         }},
        {"master", 1,
         [&] {
             const char* eids[] = {"", kMain, kAnnex, "00A701-999999"};
             return service
                 .set("systemGlobals", R"({"masterSwitchEid":")" + std::string(eids[any(4)]) + "\"}")
                 .error();
         }},
        {"reboot", 1, [&] { return service.set("swx", R"({"index":2,"reset":"cold_reboot"})").error(); }},
        {"restart", 1, [&] { return any(20) == 0 ? (service.restart(), 0) : 1; }},
        // What the settings of another installation bring, which take effect at the next start.
        {"load", 1,
         [&] {
             const auto poke = [&](const char* where, const char* key, const char* value) {
                 return service
                     .set("simControl", R"({"action":"poke",)" + std::string(where) + R"(,"key":")" + key +
                                            R"(","value":")" + value + "\"}")
                     .error();
             };
             const char* eids[] = {kMain, kAnnex, "00A701-999999"};
             const int error =
                 poke(R"("resource":"systemGlobals")", "masterSwitchEid", eids[any(3)]) +
                 poke(R"("resource":"swx","record":1)", "mode", any(2) == 0 ? "master" : "slave") +
                 poke(R"("resource":"swx","record":2)", "mode", any(2) == 0 ? "master" : "slave");
             service.restart();
             return error;
         }},
        {"factory", 1,
         [&] {
             return any(6) == 0
                        ? service.set("swx", R"({"index":1,"reset":"factory_default_partial"})").error()
                        : 1;
         }},
        {"wait", 6, [&] { return service.pass(any(3) == 0 ? 40000 : any(9000)), 0; }},
    };
    std::vector<const Action*> chosen;
    for (const Action& step : steps)
        chosen.insert(chosen.end(), static_cast<std::size_t>(step.weight), &step);
    for (int step = 0; step < 20000; ++step) {
        const Action& action = *chosen[static_cast<std::size_t>(any(static_cast<int>(chosen.size())))];
        const char* const name = action.name;
        if (action.run() == 0) ++done[name];
        const std::string master = global("masterSwitchEid"), peer = global("peerControllerSwitchEid");
        const std::string here = places();
        SCOPED_TRACE(std::to_string(step) + ' ' + name + ": " + here + "; master " + master + ", peer " +
                     peer + ", " + global("cascadeController"));
        int controllers = 0;
        for (const unsigned i : {1u, 2u}) controllers += swx(i, "cascadeRole") == "controller";
        ASSERT_LE(controllers, 1) << "never two";
        ASSERT_NE(swx(1, "status"), "offline") << "nobody looks from a Switch that is gone";
        const std::string role = swx(1, "cascadeRole");
        if (!peer.empty()) {
            ASSERT_EQ(controllers, 1);
            ASSERT_TRUE(peer == kMain || peer == kAnnex);
            ASSERT_TRUE(master != peer && (master == kMain || master == kAnnex)) << "nothing dangles";
            const bool peerControls = global("cascadeController") == "peer";
            for (const unsigned i : {1u, 2u}) {
                const std::string eid = swx(i, "eid");
                ASSERT_EQ(swx(i, "mode"), eid == master ? "master" : "slave");
                ASSERT_EQ(swx(i, "cascadeRole") == "controller", eid == (peerControls ? peer : master));
            }
            ASSERT_NE(role, "not_present");
        } else {
            ASSERT_EQ(global("cascadeController"), "master");
            // The page of a slave alone makes a controller: it can choose to be a master.
            ASSERT_EQ(role, swx(1, "mode") == "master" ? "controller" : "slave");
            ASSERT_TRUE(role != "controller" || master == swx(1, "eid"));
        }
        if (step % 500 == 0) {
            // The way on that the page of this place has is taken by the service.
            if (global("managedSetting") != "non_managed") {
                ASSERT_EQ(service.set("systemGlobals", R"({"managedSetting":"unenrolling"})").error(), 0);
                service.pass(span::kEnrol);
                ASSERT_EQ(global("managedSetting"), "non_managed");
            }
            service.pass(120000); // whatever was under way is through
            if (swx(1, "cascadeRole") == "slave" && global("peerControllerSwitchEid").empty()) {
                ASSERT_EQ(service.set("swx", R"({"index":1,"mode":"master"})").error(), 0);
            }
            if (swx(1, "cascadeRole") == "backup" && swx(2, "status") == "offline") {
                ASSERT_EQ(act("promote_peer"), 0);
            }
            if (swx(1, "cascadeRole") == "backup") {
                ASSERT_EQ(swx(2, "cascadeRole"), "controller");
            } else {
                ASSERT_EQ(swx(1, "cascadeRole"), "controller") << "every place has a way to a controller";
            }
        }
    }
    for (const Action& step : steps) EXPECT_GT(done[step.name], 10) << step.name << " hardly ever worked";
}

} // namespace

} // namespace zeqd::testing
