// What a client may send, and what it is told.
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/request/ReadRequest.h"
#include "tests/platform/service/support/CountingView.h"
#include "tests/platform/service/support/Harness.h"

#include <gtest/gtest.h>

namespace zeqd::testing {
namespace {

TEST(Requests, BadOnesGetTheirNumbersAndChangeNothing) {
    Harness service;
    const std::string before = dump(service.engine->store());
    const std::string longText(41, 'x');
    struct {
        const char* what;
        std::string request; ///< behind {"id":1,
        int error;
    } rows[] = {
        {"no method", R"({"resource":"rx"})", 1002},
        {"method of another type", R"({"method":3,"resource":"rx"})", 1002},
        {"unknown method", R"({"method":"put","resource":"rx"})", 1004},
        {"no resource", R"({"method":"get"})", 1003},
        {"empty resource", R"({"method":"get","resource":""})", 1003},
        {"unknown resource", R"({"method":"get","resource":"printer"})", 1005},
        {"resource in the wrong case", R"({"method":"get","resource":"RX"})", 1005},
        {"unknown nested object", R"({"method":"get","resource":"swx/network/ipv5"})", 1005},
        {"path into a text", R"({"method":"get","resource":"swx/name"})", 1005},
        {"endless path", R"({"method":"get","resource":"swx/network/ipv4/a/b/c/d/e/f/g"})", 1005},
        {"create of a device", R"({"method":"create","resource":"rx","params":{"name":"x"}})", 1006},
        {"write of a read-only table", R"({"method":"set","resource":"changeStatus","params":{"index":1}})",
         1006},
        {"read of an action", R"({"method":"get","resource":"swxControl"})", 1006},
        {"removal of a part", R"({"method":"delete","resource":"swx/network","params":{"index":2}})", 1006},
        {"removal of a nested part",
         R"({"method":"delete","resource":"user/keySettings/osdHotKey","params":{"index":3}})", 1006},
        {"creation of a part",
         R"({"method":"create","resource":"user/keySettings","params":{"name":"x","role":"user"}})", 1006},
        {"stars for a new secret",
         R"({"method":"create","resource":"upgrade","params":{"protocol":"file","filename":"x","password":"********"}})",
         9},
        {"set without an index", R"({"method":"set","resource":"rx","params":{"name":"x"}})", 1008},
        {"set of index 0", R"({"method":"set","resource":"rx","params":{"index":0,"name":"x"}})", 1008},
        {"index as text", R"({"method":"set","resource":"rx","params":{"index":"1","name":"x"}})", 9},
        {"index below zero", R"({"method":"set","resource":"rx","params":{"index":-1,"name":"x"}})", 9},
        {"index beyond 32 bits", R"({"method":"set","resource":"rx","params":{"index":4294967296}})", 9},
        {"set of what is not there", R"({"method":"set","resource":"rx","params":{"index":4000,"name":"x"}})",
         7},
        {"delete of what is not there", R"({"method":"delete","resource":"rx","params":{"index":4000}})", 7},
        {"read of what is not there", R"({"method":"get","resource":"rx","query":{"index":4000}})", 1009},
        {"unknown key", R"({"method":"set","resource":"rx","params":{"index":1,"colour":"red"}})", 1013},
        {"the service's own key", R"({"method":"set","resource":"rx","params":{"index":1,"simPort":1}})",
         1013},
        {"unknown key in select", R"({"method":"get","resource":"rx","select":["colour"]})", 1013},
        {"the service's own key in select", R"({"method":"get","resource":"rx","select":["simMonitor"]})",
         1013},
        {"unknown key in query", R"({"method":"get","resource":"rx","query":{"colour":"red"}})", 1013},
        {"query by a password", R"({"method":"get","resource":"user","query":{"password":""}})", 1106},
        {"read-only key", R"({"method":"set","resource":"rx","params":{"index":1,"eid":"AAAAAA-AAAAAA"}})",
         1106},
        {"text too long",
         R"({"method":"set","resource":"rx","params":{"index":1,"name":")" + longText + R"("}})", 14},
        {"control character", R"({"method":"set","resource":"rx","params":{"index":1,"name":"a\u0007"}})",
         17},
        {"newline in a name", R"({"method":"set","resource":"rx","params":{"index":1,"name":"a\nb"}})", 17},
        {"letter beyond ASCII", R"({"method":"set","resource":"rx","params":{"index":1,"name":"Größe"}})",
         17},
        {"number for a text", R"({"method":"set","resource":"rx","params":{"index":1,"name":5}})", 9},
        {"null for a text", R"({"method":"set","resource":"rx","params":{"index":1,"name":null}})", 9},
        {"unknown value", R"({"method":"set","resource":"rx","params":{"index":1,"usbMode":"fast"}})", 1010},
        {"value in the wrong case",
         R"({"method":"set","resource":"rx","params":{"index":1,"usbMode":"Disabled"}})", 1010},
        {"number above its range",
         R"({"method":"set","resource":"rx","params":{"index":1,"sharingInactivityTimeout":26}})", 10},
        {"number below its range",
         R"({"method":"set","resource":"rx","params":{"index":1,"sharingInactivityTimeout":-1}})", 10},
        {"fraction",
         R"({"method":"set","resource":"rx","params":{"index":1,"sharingInactivityTimeout":1.5}})", 9},
        {"text for a number",
         R"({"method":"set","resource":"rx","params":{"index":1,"sharingInactivityTimeout":"2"}})", 9},
        {"reference to nobody",
         R"({"method":"set","resource":"rx","params":{"index":1,"autoLoginUserIndex":900}})", 7},
        {"bad EID",
         R"({"method":"set","resource":"rx","params":{"index":1,"autoConnectTxEid":"00A703030000D"}})", 17},
        {"bad address",
         R"({"method":"set","resource":"swx/network/ipv4","params":{"index":1,"ipAddress":"256.1.1.1"}})",
         17},
        {"object that is none", R"({"method":"set","resource":"swx","params":{"index":1,"network":7}})", 9},
        {"unknown key in an object",
         R"({"method":"set","resource":"swx","params":{"index":1,"network":{"ipv4":{"mtu":9}}}})", 1013},
        {"list that is none",
         R"({"method":"set","resource":"user","params":{"index":3,"favorite":{"txIndex":1}}})", 9},
        {"entry that is none", R"({"method":"set","resource":"user","params":{"index":3,"favorite":[1]}})",
         9},
        {"entry without its key",
         R"({"method":"set","resource":"user","params":{"index":3,"favorite":[{}]}})", 1007},
        {"reference in a list",
         R"({"method":"set","resource":"user","params":{"index":3,"favorite":[{"txIndex":900}]}})", 7},
        {"binary that is none",
         R"({"method":"create","resource":"edid","params":{"name":"x","data":"AAAA"}})", 9},
        {"binary with bad base64",
         R"({"method":"create","resource":"edid","params":{"name":"x","data":{"$binary":"*"}}})", 17},
        {"binary of the wrong length",
         R"({"method":"create","resource":"edid","params":{"name":"x","data":{"$binary":"AAAA"}}})", 1011},
        {"create without what it needs",
         R"({"method":"create","resource":"connection","params":{"rxIndex":4}})", 1007},
        {"action without its verb", R"({"method":"set","resource":"alertsControl","params":{}})", 1007},
        {"action without parameters", R"({"method":"set","resource":"edidControl"})", 1007},
        {"select that is no list", R"({"method":"get","resource":"rx","select":"name"})", 9},
        {"params that are no object", R"({"method":"set","resource":"rx","params":[1]})", 9},
        {"doubled key", R"({"method":"get","method":"set","resource":"rx"})", 1001},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Answer answer = service.ask(row.request);
        EXPECT_EQ(answer.error(), row.error) << answer.text();
        EXPECT_EQ(dump(service.engine->store()), before);
    }
}

TEST(Requests, TextThatIsNoRequestIsRefusedWhatever) {
    Harness service;
    const std::string deep(200000, '[');
    for (const std::string& text :
         {std::string(), std::string("{"), std::string("[]"), std::string("null"), deep,
          std::string("{\"id\":1,\"method\":\"get\",\"resource\":\"\xFF\xFE\"}"),
          std::string("{\"id\":1,\"method\":\"get\",\"resource\":\"rx\\u0000\"}")}) {
        std::string answer;
        service.engine->request(7, text, [&answer](std::string reply) { answer = std::move(reply); });
        EXPECT_EQ(Answer(answer).error(), 1001) << text.substr(0, 40);
    }
}

TEST(Requests, SeveralFaultsAreReportedTogetherAndNoneIsKept) {
    Harness service;
    const Answer answer = service.set(
        "rx",
        R"({"index":1,"location":"good","colour":"red","usbMode":"fast","sharingInactivityTimeout":99})");
    EXPECT_EQ(answer.errorCount(), 3U) << answer.text();
    EXPECT_EQ(service.value("rx", 1, "location"), "Control room, desk 1");
}

TEST(Requests, AFaultNamesTheKeyAndWhatIsAccepted) {
    Harness service;
    EXPECT_EQ(service.set("swx", R"({"index":1,"mode":"fast"})").detail(),
              "mode 'fast' unknown; use master, slave");
    EXPECT_EQ(service.set("systemGlobals/rapParameters", R"({"sshPort":80})").detail(),
              "rapParameters/sshPort: 1024 to 65535");
}

TEST(Requests, ThousandsOfFaultsMakeAShortAnswer) {
    Harness service;
    std::string params = "{\"index\":1";
    for (int i = 0; i < 5000; ++i) params += ",\"k" + std::to_string(i) + "\":1";
    EXPECT_EQ(service.set("rx", params + "}").errorCount(), kMaxErrors);
}

TEST(Requests, NestedPathsAndNestedObjectsAreTheSame) {
    Harness service;
    EXPECT_EQ(service.set("swx/network/ipv4", R"({"index":2,"ipAddress":"10.9.9.9"})").error(), 0);
    EXPECT_EQ(service.set("swx", R"({"index":2,"network":{"ipv4":{"subnetMask":"255.0.0.0"}}})").error(), 0);
    const Answer whole = service.get("swx", R"("query":{"index":2},"select":["network"])");
    EXPECT_EQ(whole.at("network/ipv4/ipAddress"), "10.9.9.9");
    EXPECT_EQ(whole.at("network/ipv4/subnetMask"), "255.0.0.0");
    EXPECT_EQ(whole.at("network/ipv4/gatewayAddress"), "10.20.1.1");
    const Answer inner = service.get("swx/network/ipv4", R"("query":{"index":2},"select":["ipAddress"])");
    EXPECT_EQ(inner.at("ipAddress"), "10.9.9.9");
    EXPECT_EQ(inner.at("index"), "2");
}

TEST(Requests, ReadsAnswerWhatIsAskedFor) {
    Harness service;
    const Answer chosen = service.get("rx", R"("query":{"index":[3,1,900]},"select":["eid","index","eid"])");
    ASSERT_EQ(chosen.rowCount(), 2U);
    EXPECT_EQ(chosen.text(),
              R"({"id":1,"rows":[{"index":3,"eid":"00A702-020033"},{"index":1,"eid":"00A702-020011"}]})");
    EXPECT_EQ(service.get("edid", R"("query":{"name":"Standard VGA"})").at("isProtected"), "is_true");
    EXPECT_EQ(service.get("portStatus", R"("query":{"swxIndex":2})").at("index"), "2");
    EXPECT_EQ(service.get("systemGlobals", R"("select":["switchApiPort"])").text(),
              R"({"id":1,"rows":[{"switchApiPort":443}]})");
    EXPECT_EQ(service.ask(R"({"method":"GeT","resource":"zeqHello"})").at("protocol"), "1");
    EXPECT_EQ(service.get("historicalAlerts", R"("select":["date"])").at("instanceId"), "1");
}

std::string indexes(std::size_t count) {
    std::string list = "1";
    for (std::size_t i = 1; i < count; ++i) list += ",1";
    return "\"select\":[\"index\"],\"query\":{\"index\":[" + list + "]}";
}

TEST(Requests, AReadHasAsManyIndexesAsThereMayBeRecords) {
    Harness service;
    for (const ResourceRow& row : catalogue()) {
        if (!row.allows(Method::Get) || row.shape == Shape::Singleton || row.keys.empty() ||
            row.id == Res::UserTargetList || row.id == Res::ZeqHello)
            continue;
        SCOPED_TRACE(std::string(row.name));
        const std::size_t most = row.capacity ? row.capacity : 20000;
        EXPECT_NE(service.get(std::string(row.name), indexes(most)).error(), 15);
        EXPECT_EQ(service.get(std::string(row.name), indexes(most + 1)).error(), 15);
    }
    EXPECT_EQ(service.get("rx", indexes(500'000)).error(), 15);
    EXPECT_EQ(service.get("rx", indexes(20'000)).rowCount(), 20'000U) << "a row for each";
}

std::string readFrom(const View& view, const std::string& members) {
    ZeqRequest request;
    Errors errors;
    interpret("{\"id\":1,\"method\":\"get\"," + members + "}", request, errors);
    return answerRead(view, request, 0);
}

TEST(Requests, AnUnknownKeyIsToldInWholeCharacters) {
    Harness service;
    for (int ascii = 0; ascii < 4; ++ascii) {
        std::string key(static_cast<std::size_t>(ascii), 'x');
        for (int i = 0; i < 40; ++i) key += "\u20ac";
        EXPECT_EQ(service.get("rx", "\"query\":{\"" + key + "\":1}").error(), 1013);
        EXPECT_EQ(service.get("rx", "\"select\":[\"" + key + "\"]").error(), 1013);
        EXPECT_EQ(service.set("rx", "{\"index\":1,\"" + key + "\":1}").error(), 1013);
    }
}

TEST(Requests, ReckoningEndsWhereTheAnswerIsTooLong) {
    Store store;
    Record user(Res::User, 1);
    auto all = std::make_shared<Entries>();
    for (std::int64_t tx = 1; tx <= 20'000; ++tx) all->push_back({Value(tx + 4'000'000'000)});
    user.at("target") = EntriesPtr(all);
    store.load(std::make_shared<const Record>(std::move(user)));
    const CountingView view(store);
    std::string many = "1";
    for (int i = 1; i < 256; ++i) many += ",1";
    EXPECT_EQ(Answer(readFrom(view, "\"resource\":\"user\",\"query\":{\"index\":[" + many + "]}")).error(),
              15);
    EXPECT_LT(view.finds, 250U);
}

TEST(Requests, SessionsAreLookedThroughOnceForAllDiagnostics) {
    Store store;
    for (std::uint32_t i = 1; i <= 300; ++i) {
        store.load(std::make_shared<const Record>(std::move(Record(Res::Rx, i).choose("status", "ready"))));
        store.load(std::make_shared<const Record>(std::move(Record(Res::Connection, i).set("rxIndex", i))));
    }
    const CountingView view(store);
    EXPECT_EQ(Answer(readFrom(view, "\"resource\":\"rxUsbDiag\"")).rowCount(), 300U);
    EXPECT_LE(view.seen, 300U);
}

TEST(Requests, AnUnchangedSetTouchesNeitherDiskNorChangeNumbers) {
    Harness service;
    const int writes = service.disk.writes;
    const std::string number = service.value("changeStatus", 7, "lastChange");
    EXPECT_EQ(service.set("rx", R"({"index":1,"name":"Desk 1 Left"})").error(), 0);
    EXPECT_EQ(service.disk.writes, writes);
    EXPECT_EQ(service.value("changeStatus", 7, "lastChange"), number);
}

TEST(Requests, ChangeNumbersMoveByKindAndNeverBack) {
    Harness service;
    const auto numbers = [&service] {
        std::vector<int> all;
        for (int id = 1; id <= kLastInfoId; ++id)
            all.push_back(std::stoi(service.value("changeStatus", id, "lastChange")));
        return all;
    };
    struct {
        const char* resource;
        const char* params;
        std::vector<int> moved;
    } rows[] = {
        {"rx", R"({"index":1,"name":"A"})", {7}},
        {"tx", R"({"index":1,"name":"A"})", {8, 10}},
        {"tx", R"({"index":1,"location":"A"})", {8}},
        {"swx", R"({"index":1,"name":"A"})", {1}},
        {"user", R"({"index":3,"fullName":"A"})", {6}},
        {"user", R"({"index":7,"target":[]})", {6, 10}},
        {"systemGlobals", R"({"syslogDest":"10.0.0.1"})", {3}},
        {"cfgDefaults", R"({"txDefaultUsbMode":"disabled"})", {4}},
        {"alertLogControl", R"({"enableAlertFanFault":"disabled"})", {5}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.resource) + row.params);
        std::vector<int> expected = numbers();
        ASSERT_EQ(service.set(row.resource, row.params).error(), 0);
        for (const int id : row.moved) ++expected[static_cast<std::size_t>(id) - 1];
        EXPECT_EQ(numbers(), expected);
    }
    const std::vector<int> before = numbers();
    service.restart();
    const std::vector<int> after = numbers();
    for (std::size_t i = 0; i < before.size(); ++i) EXPECT_GE(after[i], before[i]);
}

} // namespace
} // namespace zeqd::testing
