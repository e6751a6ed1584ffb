// Keeping and answering: what is answered is kept, what is not kept is not answered as kept.
#include "tests/platform/service/support/Harness.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/ValueLists.h"

#include <functional>
#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

/// A request whose answer may be long in coming.
struct Pending {
    Pending(Harness& service, ClientId client, const std::string& text) {
        service.engine->request(client, text, [this](std::string reply) { answer = std::move(reply); });
        service.engine->flush();
    }
    std::string answer;
};

std::string rename(int rx, const std::string& name) {
    return R"({"id":1,"method":"set","resource":"rx","params":{"index":)" + std::to_string(rx) +
           R"(,"name":")" + name + R"("}})";
}

TEST(Engine, AWriteIsAnsweredAndSeenOnlyWhenItIsKept) {
    Harness service;
    const Pending write(service, 1, rename(1, "New"));
    EXPECT_EQ(write.answer, "");
    std::string seen;
    service.engine->request(
        2, R"({"id":1,"method":"get","resource":"rx","query":{"index":1},"select":["name"]})",
        [&seen](std::string text) { seen = std::move(text); });
    EXPECT_EQ(Answer(seen).at("name"), "Desk 1 Left") << "a read does not wait, and sees what is on disk";
    ASSERT_TRUE(service.executor.step(Lane::Disk));
    EXPECT_EQ(Answer(write.answer).error(), 0);
    EXPECT_EQ(service.value("rx", 1, "name"), "New");
}

TEST(Engine, WritesThatComeTogetherShareOneSync) {
    Harness service;
    const Pending first(service, 1, rename(1, "A"));
    std::deque<Pending> others;
    for (int rx = 2; rx <= 20; ++rx)
        others.emplace_back(service, static_cast<ClientId>(rx), rename(rx, "N" + std::to_string(rx)));
    const int before = service.disk.writes;
    service.settle();
    EXPECT_EQ(service.disk.writes, before + 2);
    for (const Pending& other : others) EXPECT_EQ(Answer(other.answer).error(), 0);
    EXPECT_EQ(service.value("rx", 20, "name"), "N20");
}

TEST(Engine, ARefusalInABatchLeavesTheOthersAlone) {
    Harness service;
    const Pending first(service, 1, rename(1, "A")); // opens a batch; the rest gathers in the next
    const Pending good(
        service, 2,
        R"({"id":1,"method":"create","resource":"user","params":{"name":"same","role":"user","allowBlankPassword":"enabled"}})");
    const Pending twin(
        service, 3,
        R"({"id":1,"method":"create","resource":"user","params":{"name":"same","role":"user","allowBlankPassword":"enabled"}})");
    const Pending last(service, 4, rename(2, "B"));
    service.settle();
    EXPECT_EQ(Answer(good.answer).error(), 0);
    EXPECT_EQ(Answer(twin.answer).error(), 11) << "the second sees what the first is about to keep";
    EXPECT_EQ(Answer(last.answer).error(), 0);
}

TEST(Engine, AFaultInOneRequestRefusesThatOneAndNoMore) {
    Harness service;
    const std::string rename3 = rename(3, "C");
    const Pending first(service, 1, rename(1, "A")); // opens a batch; the rest gathers in the next
    const Pending second(service, 2, rename(2, "B"));
    const Pending third(service, 3, rename3);
    const Pending fourth(service, 4, rename(4, "D"));
    ASSERT_TRUE(service.executor.step(Lane::Disk));
    service.clock.failures = 2;
    service.settle();
    EXPECT_EQ(service.clock.failures, 0) << "the fault came";
    EXPECT_EQ(Answer(second.answer).error(), 0);
    EXPECT_EQ(Answer(third.answer).error(), 1);
    EXPECT_EQ(Answer(fourth.answer).error(), 0);
    EXPECT_EQ(service.value("rx", 3, "name") == "C", false);
    EXPECT_EQ(service.value("rx", 4, "name"), "D");
    EXPECT_FALSE(service.log.empty()) << "a line tells of it";
    service.clock.failures = 1;
    EXPECT_EQ(service.get("rx").error(), 1) << "a read as well";
    EXPECT_EQ(service.get("rx").error(), 0);
}

TEST(Engine, TakesEmptyTextsForEveryKey) {
    Harness service;
    EXPECT_NE(service.set("simControl", R"({"action":"attach","resource":"rx","eid":""})").error(), 0);
    EXPECT_NE(service.set("simControl", R"({"action":"offline","eid":""})").error(), 0);
    struct Name {
        Method method;
        const char* text;
    };
    int asked = 0;
    const std::function<void(const ResourceRow&, std::span<const KeyRow>, const std::string&,
                             const std::string&)>
        ask = [&](const ResourceRow& row, std::span<const KeyRow> keys, const std::string& before,
                  const std::string& after) {
            for (const KeyRow& key : keys) {
                const std::string name = before + '"' + std::string(key.key) + "\":";
                for (const Name& method : {Name{Method::Set, "set"}, Name{Method::Create, "create"},
                                           Name{Method::Delete, "delete"}}) {
                    if (!row.allows(method.method)) continue;
                    for (const char* value : {"\"\"", "null", "[]", "{}"}) {
                        service.ask(std::string("{\"method\":\"") + method.text + "\",\"resource\":\"" +
                                    std::string(row.name) + "\",\"params\":{" + name + value + after + "}}");
                        ++asked;
                    }
                }
                if (key.type == Type::Object) ask(row, key.rows(), name + "{", "}" + after);
            }
        };
    for (const ResourceRow& row : catalogue()) ask(row, row.keys, "\"index\":2,", "");
    for (const std::string_view action : values::simAction.values)
        ask(resource(Res::SimControl), resource(Res::SimControl).keys,
            "\"action\":\"" + std::string(action) + "\",", "");
    EXPECT_GT(asked, 2000);
    for (const std::string& line : service.log) EXPECT_EQ(line.find("fault"), std::string::npos) << line;
}

TEST(Engine, TheNumberOfARecordThatLivedWithinOneBatchIsNeverGivenAgain) {
    Harness service;
    const Pending first(service, 1, rename(1, "A")); // opens a batch; the rest gathers in the next
    const std::string make =
        R"({"id":1,"method":"create","resource":"user","params":{"name":"x","role":"user","allowBlankPassword":"enabled"}})";
    const int next = static_cast<int>(service.engine->store().nextIndex(Res::User));
    const Pending made(service, 2, make);
    const Pending removed(service, 3,
                          R"({"id":1,"method":"delete","resource":"user","params":{"index":)" +
                              std::to_string(next) + "}}");
    service.settle();
    ASSERT_EQ(Answer(made.answer).number("index"), next);
    ASSERT_EQ(Answer(removed.answer).error(), 0);
    EXPECT_EQ(service.create("user", R"({"name":"y","role":"user","password":"pw"})").number("index"),
              next + 1);
}

TEST(Engine, AFullDiskRefusesTheWriterAndLeavesReadsWorking) {
    Harness service;
    const std::string before = dump(service.engine->store());
    service.disk.failures = 2;
    const Answer refused = service.set("rx", R"({"index":1,"name":"New"})");
    EXPECT_EQ(refused.error(), 1);
    EXPECT_EQ(refused.detail(), "service.detail.disk");
    EXPECT_EQ(dump(service.engine->store()), before);
    EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"no"})").error(), 1103)
        << "a refusal is the answer, whatever becomes of its event";
    EXPECT_EQ(service.value("rx", 1, "name"), "Desk 1 Left");
    EXPECT_EQ(service.set("rx", R"({"index":1,"name":"New"})").error(), 0) << "there is room again";
    service.restart();
    EXPECT_EQ(service.value("rx", 1, "name"), "New");
}

TEST(Engine, AFullDiskLocksNoAdministratorOut) {
    Harness service;
    service.disk.failures = 1000;
    const Answer login = service.create(
        "adminSession",
        R"({"username":"admin","password":"test-1","ipAddress":"10.0.0.9","sessionType":"mirl"})");
    ASSERT_EQ(login.error(), 0);
    EXPECT_EQ(service.get("adminSession").rowCount(), 1U);
    EXPECT_EQ(service.set("rx", R"({"index":1,"name":"New"})").error(), 1) << "what is to last is refused";
    EXPECT_EQ(service.set("alertsControl", R"({"alertsAction":"ack_all"})").error(), 1);
    EXPECT_EQ(service.create("adminSession", R"({"username":"admin","password":"no"})").error(), 1103);
    ASSERT_EQ(service.remove("adminSession", login.number("index")).error(), 0);
    const std::string events = service.ask(R"({"method":"get","resource":"unacknowledgedAlerts"})", 8).text();
    service.disk.failures = 0;
    ASSERT_EQ(service.ask(R"({"method":"set","resource":"rx","params":{"index":1,"name":"New"}})", 8).error(),
              0);
    service.restart();
    EXPECT_EQ(service.get("unacknowledgedAlerts").text(), events)
        << "the events got there with the next write";
}

TEST(Engine, OneThatTheDiskDoesNotTakeRefusesOnlyItself) {
    Harness service;
    service.disk.poison = "poison";
    const Pending first(service, 1, rename(1, "A")); // opens a batch; the rest gathers in the next
    std::deque<Pending> others;
    for (int rx = 2; rx <= 20; ++rx)
        others.emplace_back(service, static_cast<ClientId>(rx), rename(rx, rx == 5 ? "poison" : "N"));
    service.settle();
    for (int rx = 2; rx <= 20; ++rx) {
        EXPECT_EQ(Answer(others[static_cast<std::size_t>(rx - 2)].answer).error(), rx == 5 ? 1 : 0) << rx;
        EXPECT_EQ(service.value("rx", rx, "name") == "N", rx != 5) << rx;
    }
}

TEST(Engine, AFailedBatchIsNotTriedForEver) {
    Harness service;
    const Pending first(service, 1, rename(1, "A"));
    std::deque<Pending> others;
    for (int rx = 2; rx <= 20; ++rx) others.emplace_back(service, static_cast<ClientId>(rx), rename(rx, "N"));
    ASSERT_TRUE(service.executor.step(Lane::Disk));
    const int before = service.disk.writes;
    service.disk.failures = 1000;
    service.settle();
    for (const Pending& other : others) EXPECT_EQ(Answer(other.answer).error(), 1);
    EXPECT_LE(service.disk.writes, before + 4)
        << "a disk that is busy for two seconds each would take minutes";
}

TEST(Engine, AStepOfTheSimulationThatCannotBeKeptIsNotLostForTheDevice) {
    Harness service;
    ASSERT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 0);
    service.disk.failures = 1;
    service.pass(60000);
    EXPECT_EQ(service.value("rx", 1, "status"), "ready");
}

TEST(Engine, WhatTheServiceDoesOfItselfIsTriedAgain) {
    Harness service;
    const auto login =
        R"({"id":1,"method":"create","resource":"adminSession","params":{"username":"admin","password":"test-1","sessionType":"mirl"}})";
    const Pending session(service, 9, login);
    service.settle();
    ASSERT_EQ(service.get("adminSession").rowCount(), 1U);
    service.engine->clientGone(9);
    service.disk.failures = 2;
    service.pass(4000);
    ASSERT_EQ(service.get("adminSession").rowCount(), 1U) << "the test's disk failed";
    service.pass(20000);
    EXPECT_EQ(service.get("adminSession").error(), 1009) << "a session whose client has gone";
    service.disk.failures = 0;

    // A firmware file that has come, or not, while the disk was full.
    const std::string upgrade =
        service.create("upgrade", R"({"protocol":"file","filename":"/nowhere"})").at("index");
    const Pending update(service, 1,
                         R"({"id":1,"method":"set","resource":"rx","params":{"index":1,"upgradeIndex":)" +
                             upgrade + "}}");
    service.executor.step(Lane::Disk);
    service.engine->runDue();
    service.engine->flush();
    service.disk.failures = 1;
    service.settle();
    ASSERT_EQ(service.disk.failures, 0);
    service.pass(20000);
    EXPECT_EQ(service.value("rx", 1, "upgradeStatus"), "failed_file_get");

    // A start: devices in the middle of something.
    service.set("rx", R"({"index":2,"reset":"cold_reboot"})");
    service.disk.failures = 3;
    service.restart();
    service.pass(60000);
    EXPECT_EQ(service.value("rx", 2, "status"), "ready");
}

TEST(Engine, ADatabaseThatTurnsOutDamagedIsWrittenAnewFromMemory) {
    Harness service;
    ASSERT_EQ(service.set("rx", R"({"index":1,"name":"Before"})").error(), 0);
    service.disk.records.erase({Res::Rx, 2}); // what the damage took
    service.disk.broken = true;
    EXPECT_EQ(service.set("rx", R"({"index":3,"name":"New"})").error(), 0);
    EXPECT_EQ(service.disk.renewals, 1);
    EXPECT_NE(service.get("unacknowledgedAlerts").text().find("found damaged"), std::string::npos);
    const std::string all = dump(service.engine->store());
    service.restart();
    EXPECT_EQ(dump(service.engine->store()), all);
    EXPECT_EQ(service.value("rx", 1, "name"), "Before");
    EXPECT_EQ(service.value("rx", 2, "name"), "Desk 1 Right");
}

TEST(Engine, TheSimulationIsSteeredOnlyWithLeave) {
    Harness service;
    service.simControl = false;
    service.restart();
    EXPECT_EQ(service.set("simControl", R"({"action":"time","factor":2})").error(), 1106);
}

TEST(Engine, HashingDoesNotHoldUpOthers) {
    Harness service;
    const Pending login(
        service, 1,
        R"({"id":1,"method":"create","resource":"adminSession","params":{"username":"admin","password":"test-1"}})");
    const Pending write(service, 2, rename(1, "New"));
    ASSERT_TRUE(service.executor.step(Lane::Disk));
    EXPECT_EQ(Answer(write.answer).error(), 0);
    EXPECT_EQ(login.answer, "");
    service.settle();
    EXPECT_EQ(Answer(login.answer).error(), 0);
}

TEST(Engine, AClientThatLeavesDuringItsLoginLeavesNoSessionBehind) {
    for (const int steps : {0, 1, 2}) {
        Harness service;
        const Pending login(
            service, 9,
            R"({"id":1,"method":"create","resource":"adminSession","params":{"username":"admin","password":"test-1","sessionType":"mirl"}})");
        if (steps > 0) {
            ASSERT_TRUE(service.executor.step(Lane::Hash));
            service.engine->flush();
        }
        if (steps > 1) {
            ASSERT_TRUE(service.executor.step(Lane::Disk));
        }
        service.engine->clientGone(9);
        service.settle();
        EXPECT_EQ(service.get("adminSession").error(), 1009) << "left after step " << steps;
    }
}

TEST(Engine, AFloodOfLoginsIsTurnedAway) {
    Harness service;
    std::deque<Pending> logins;
    for (ClientId client = 1; client <= 70; ++client)
        logins.emplace_back(
            service, client,
            R"({"id":1,"method":"create","resource":"adminSession","params":{"username":"x","password":"y"}})");
    EXPECT_EQ(logins.front().answer, "");
    EXPECT_EQ(Answer(logins.back().answer).error(), 8);
}

TEST(Engine, EverythingSurvivesARestart) {
    Harness service;
    service.create("user", R"({"name":"new","role":"user","password":"pw"})");
    service.set(
        "user",
        R"({"index":3,"keySettings":{"osdHotKey":{"hotKey":"custom","customKeys":{"length":2,"sequence":{"$binary":"BAU="}}}}})");
    service.remove("rx", 7);
    service.set("systemGlobals/rapParameters", R"({"sshPort":4000})");
    const std::string before = dump(service.engine->store());
    service.restart();
    EXPECT_EQ(dump(service.engine->store()), before);
    EXPECT_EQ(service.value("user", 3, "keySettings/osdHotKey/customKeys/sequence"), R"({"$binary":"BAU="})");
}

TEST(Engine, SimulatedTimeCanBeSpedUpAndStepped) {
    Harness service;
    ASSERT_EQ(service.set("rx", R"({"index":1,"reset":"cold_reboot"})").error(), 0);
    ASSERT_EQ(service.set("simControl", R"({"action":"time","factor":100})").error(), 0);
    service.pass(200);
    EXPECT_EQ(service.value("rx", 1, "status"), "ready");
    ASSERT_EQ(service.set("simControl", R"({"action":"time","factor":1})").error(), 0);
    ASSERT_EQ(service.set("rx", R"({"index":2,"reset":"cold_reboot"})").error(), 0);
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(service.set("simControl", R"({"action":"step","milliseconds":10000})").error(), 0);
    service.settle();
    EXPECT_EQ(service.value("rx", 2, "status"), "ready");
    EXPECT_EQ(service.set("simControl", R"({"action":"time","factor":0})").error(), 10);
}

TEST(Transactions, ShowTheirChangesInOrderOverWhatIsBelow) {
    Store store;
    for (const std::uint32_t index : {2U, 4U, 6U}) store.load(std::make_shared<Record>(Res::Edid, index));
    Transaction outer(&store);
    outer.erase(Res::Edid, 4);
    outer.put(Record(Res::Edid, 5));
    outer.later(10, {});
    Transaction inner(&outer);
    inner.put(Record(Res::Edid, 1));
    inner.erase(Res::Edid, 6);
    inner.put(Record(Res::Edid, 9));
    inner.erase(Res::Edid, 77);
    const auto indexes = [](const View& view) {
        std::vector<std::uint32_t> found;
        view.each(Res::Edid, [&](const RecordPtr& record) {
            found.push_back(record->index());
            return true;
        });
        return found;
    };
    EXPECT_EQ(indexes(inner), (std::vector<std::uint32_t>{1, 2, 5, 9}));
    EXPECT_EQ(inner.count(Res::Edid), 4U);
    EXPECT_EQ(inner.nextIndex(Res::Edid), 10U);
    EXPECT_EQ(indexes(outer), (std::vector<std::uint32_t>{2, 5, 6}));
    inner.later(20, {});
    EXPECT_EQ(inner.tasks().size(), 1U) << "what the outer one does later is not done twice";
    outer.merge(std::move(inner));
    EXPECT_EQ(outer.tasks().size(), 2U);
    store.apply(outer);
    EXPECT_EQ(indexes(store), (std::vector<std::uint32_t>{1, 2, 5, 9}));
    EXPECT_EQ(store.nextIndex(Res::Edid), 10U);
}

} // namespace
} // namespace zeqd::testing
