// The command line against a scripted service: what it asks for, what it prints, how it ends.
#include "platform/ctl/Command.h"
#include "platform/ctl/ErrorText.h"
#include "tests/platform/support/FakePeer.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace {

constexpr const char* kCatalogue = R"({"rows":[
    {"resource":"rx","methods":["get","set"],"shape":"table","note":"Receivers"},
    {"resource":"rx","key":"name","type":"text","access":"read/write","limit":"at most 40","note":"its name"},
    {"resource":"rx","key":"status","type":"choice","access":"read","values":["offline","ready"]},
    {"resource":"rx","key":"sessionInactivityTimeout","type":"number","access":"read/write","limit":"0 to 1440",
     "default":"0"},
    {"resource":"rx","key":"password","type":"text","access":"read/write","secret":true},
    {"resource":"rx","key":"data","type":"binary","access":"read/write"},
    {"resource":"rx","key":"net","type":"object","access":"read/write"},
    {"resource":"rx","key":"net/prefix","type":"number","access":"read/write"}]})";

constexpr const char* kReceivers = R"({"rows":[
    {"index":3,"name":"B\u00fcro","status":"ready","password":"hunter2","net":{"prefix":64,"sshPassword":"x"}},
    {"index":12,"name":"a\u001b[31m\nb","status":"offline","password":""}]})";

class Zeqctl : public testing::Test {
protected:
    FakePeer::Reply answer(const json_t* request) {
        const std::string resource = json_string_value(json_object_get(request, "resource"));
        const std::string method = json_string_value(json_object_get(request, "method"));
        if (resource == "zeqCatalogue") return FakePeer::answer(request, kCatalogue);
        if (resource == "broken") return FakePeer::hangUp();
        if (resource == "empty") return FakePeer::answer(request, R"({"errors":[{"errno":1009}]})");
        if (resource == "bad") {
            return FakePeer::answer(
                request,
                R"({"errors":[{"errno":11,"detail":"name"},{"errno":4711,"detail":"service.detail.last_one"}]})");
        }
        if (method == "create") return FakePeer::answer(request, R"({"rows":[{"index":77}]})");
        if (method != "get") return FakePeer::answer(request, R"({"rows":[]})");
        const json_t* index = json_object_get(json_object_get(request, "query"), "index");
        if (json_is_integer(index)) {
            return FakePeer::answer(
                request,
                R"({"rows":[{"index":3,"name":"Desk \"A\"","net":{"prefix":64},"password":"hunter2"}]})");
        }
        return FakePeer::answer(request, kReceivers);
    }

    int run(const std::vector<std::string>& arguments, const std::string& input = "") {
        std::istringstream in(input);
        out.str("");
        err.str("");
        return zeqctl::run(arguments, in, out, err);
    }

    /// The last request that was not for the catalogue.
    std::string request() const {
        const auto all = peer.requests();
        for (auto i = all.rbegin(); i != all.rend(); ++i) {
            if (i->find("zeqCatalogue") == std::string::npos) return *i;
        }
        return "nothing";
    }

    FakePeer peer{[this](const json_t* request) { return answer(request); }};
    std::ostringstream out, err;
};

TEST_F(Zeqctl, ReadsPrintWhatWasAskedFor) {
    const struct {
        std::vector<std::string> arguments;
        const char* request;
        const char* output;
    } rows[] = {
        {{"get", "rx", "3", "name"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["name"]})",
         "Desk \"A\"\n"},
        {{"get", "rx", "3", "name", "--json"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["name"]})",
         "\"Desk \\\"A\\\"\"\n"},
        {{"get", "rx", "3", "net/prefix"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["net"]})",
         "64\n"},
        {{"get", "rx", "3", "absent"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["absent"]})",
         "\n"},
        {{"get", "rx", "3", "absent", "--json"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["absent"]})",
         "null\n"},
        {{"get", "rx", "3"},
         R"({"method":"get","query":{"index":3},"resource":"rx"})",
         "index       3\nname        Desk \"A\"\nnet/prefix  64\npassword    ********\n"},
        {{"get", "rx", "3", "password"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["password"]})",
         "********\n"},
        {{"get", "rx", "3", "password", "--json"},
         R"({"method":"get","query":{"index":3},"resource":"rx","select":["password"]})",
         "\"********\"\n"},
        {{"get", "rx", "3,12", "name", "status"},
         R"({"method":"get","query":{"index":[3,12]},"resource":"rx","select":["name","status"]})",
         "name          status\nB\xC3\xBCro          ready\na\\x1B[31m\\nb  offline\n"},
        {{"get", "rx", "name=Desk", "size=4"},
         R"({"method":"get","query":{"name":"Desk","size":4},"resource":"rx"})",
         nullptr},
        {{"--json", "get", "rx", "3"},
         R"({"method":"get","query":{"index":3},"resource":"rx"})",
         "{\n  \"index\": 3,\n  \"name\": \"Desk \\\"A\\\"\",\n  \"net\": {\n    \"prefix\": 64\n  },\n"
         "  \"password\": \"********\"\n}\n"},
        {{"list", "rx", "index", "password"},
         R"({"method":"get","resource":"rx","select":["index","password"]})",
         "index  password\n3      ********\n12\n"},
        {{"list", "rx"}, R"({"method":"get","resource":"rx","select":["index","name","status"]})", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(run(row.arguments), 0) << err.str();
        EXPECT_EQ(request(), row.request);
        if (row.output) {
            EXPECT_EQ(out.str(), row.output);
        }
        EXPECT_EQ(out.str().find("hunter2"), std::string::npos);
    }
    run({"list", "rx", "--json"});
    EXPECT_EQ(out.str().find("sshPassword\": \"x"), std::string::npos) << "nested secret";
}

TEST_F(Zeqctl, WritesSendTypedValues) {
    const std::string file = testing::TempDir() + "zeqctl-value";
    std::ofstream(file, std::ios::binary) << std::string("\0\xFF", 2);
    const struct {
        std::vector<std::string> arguments;
        const char* input;
        const char* request;
    } rows[] = {
        {{"set", "rx", "3", "name=12"},
         "",
         R"({"method":"set","params":{"index":3,"name":"12"},"resource":"rx"})"},
        {{"set", "rx", "3", "sessionInactivityTimeout=12", "name=a=b"},
         "",
         R"({"method":"set","params":{"index":3,"name":"a=b","sessionInactivityTimeout":12},"resource":"rx"})"},
        {{"set", "rx", "net/prefix=64", "net/name=x"},
         "",
         R"({"method":"set","params":{"net":{"name":"x","prefix":64}},"resource":"rx"})"},
        {{"set", "rx/net", "3", "prefix=64"},
         "",
         R"({"method":"set","params":{"index":3,"prefix":64},"resource":"rx/net"})"},
        {{"set", "rx", "3", "list:=[{\"a\":1}]", "net={}"},
         "",
         R"({"method":"set","params":{"index":3,"list":[{"a":1}],"net":{}},"resource":"rx"})"},
        {{"set", "rx", "3", "password=@-"},
         "top secret\n",
         R"({"method":"set","params":{"index":3,"password":"top secret"},"resource":"rx"})"},
        {{"set", "rx", "3", "data=@" + file},
         "",
         R"({"method":"set","params":{"data":{"$binary":"AP8="},"index":3},"resource":"rx"})"},
        {{"set", "rx", "--", "3", "name=--json"},
         "",
         R"({"method":"set","params":{"index":3,"name":"--json"},"resource":"rx"})"},
        {{"delete", "rx", "9"}, "", R"({"method":"delete","params":{"index":9},"resource":"rx"})"},
        {{"device", "offline", "AB12CD-000003"},
         "",
         R"({"method":"set","params":{"action":"offline","eid":"AB12CD-000003"},"resource":"simControl"})"},
        {{"time", "faster", "60"},
         "",
         R"({"method":"set","params":{"action":"time","factor":60},"resource":"simControl"})"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(run(row.arguments, row.input), 0) << err.str();
        EXPECT_EQ(request(), row.request);
        EXPECT_EQ(out.str(), "");
    }
    EXPECT_EQ(run({"create", "rx", "name=x"}), 0);
    EXPECT_EQ(out.str(), "77\n");
    EXPECT_EQ(request(), R"({"method":"create","params":{"name":"x"},"resource":"rx"})");
    const std::size_t before = peer.requests().size();
    EXPECT_EQ(run({"delete", "rx", "9,10"}), 0);
    EXPECT_EQ(peer.requests().size(), before + 2);
}

TEST_F(Zeqctl, FailuresHaveTheirExitCodeAndOneClearLine) {
    const struct {
        std::vector<std::string> arguments;
        int code;
        const char* says;
    } rows[] = {
        {{}, 2, "a command is missing"},
        {{"fetch"}, 2, "command 'fetch' unknown; use get, list"},
        {{"get"}, 2, "a resource is missing"},
        {{"get", "rx", "--jsn"}, 2, "option '--jsn' unknown; use --json"},
        {{"get", "rx", "--timeout"}, 2, "--timeout needs a value"},
        {{"get", "rx", "--timeout", "0"}, 2, "a number from 1 to"},
        {{"get", "rx", "--json=yes"}, 2, "takes no value"},
        {{"set", "rx", "3"}, 2, "nothing to write"},
        {{"set", "rx", "3", "name"}, 2, "'name' is not KEY=VALUE"},
        {{"set", "rx", "3", "=x"}, 2, "is not KEY=VALUE"},
        {{"set", "rx", "3", "sessionInactivityTimeout=many"}, 2, "'many' is not a whole number"},
        {{"set", "rx", "3", "name:={"}, 2, "'{' is not JSON"},
        {{"set", "rx", "3", "name=\xFF"}, 2, "not UTF-8"},
        {{"set", "rx", "3", "name=@/nonexistent"}, 2, "cannot read /nonexistent"},
        {{"set", "rx", "3", "name=@/dev/zero"}, 2, "larger than"},
        {{"delete", "rx"}, 2, "which records?"},
        {{"delete", "rx", "0"}, 2, "which records?"},
        {{"delete", "rx", "4294967296"}, 2, "which records?"},
        {{"delete", "rx", "3,"}, 2, "which records?"},
        {{"device", "away", "X"}, 2, "use device offline EID"},
        {{"login", "admin"}, 2, "use login USER RECEIVER"},
        {{"logout"}, 2, "use logout RECEIVER"},
        {{"alert"}, 2, "use alert KIND"},
        {{"cascade", "away"}, 2, "use cascade look"},
        {{"manager", "leave", "now"}, 2, "use manager enrol ADDRESS"},
        {{"time", "faster", "0"}, 2, "use time faster N"},
        {{"completion", "fish"}, 2, "use completion bash"},
        {{"help", "fetch"}, 2, "unknown"},
        {{"get", "bad", "3"},
         1,
         "zeqctl: value not unique (11): name\nzeqctl: unknown error (4711): last one\n"},
        {{"set", "bad", "3,4", "name=x"}, 1, "zeqctl: bad 3: value not unique (11): name\n"},
        {{"get", "empty"}, 1, "no entries (1009)"},
        {{"get", "broken"}, 3, "no answer from the database service: the service closed it"},
        {{"get", "rx", "--socket", "/nonexistent/s"},
         3,
         "cannot reach the database service at /nonexistent/s"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.arguments));
        EXPECT_EQ(run(row.arguments), row.code);
        EXPECT_NE(err.str().find(row.says), std::string::npos) << err.str();
        EXPECT_EQ(out.str(), "");
    }
    std::istringstream in;
    std::ofstream full("/dev/full");
    EXPECT_EQ(zeqctl::run({"get", "rx", "3"}, in, full, err), 4);
    EXPECT_EQ(run({"list", "empty", "index"}), 0) << "an empty table is no failure";
    EXPECT_EQ(run({"list", "empty", "index", "--json"}), 0);
    EXPECT_EQ(out.str(), "[]\n");
    EXPECT_EQ(run({"set", "rx", "3", "password:=hunter2"}), 2);
    EXPECT_EQ(err.str().find("hunter2"), std::string::npos) << "secrets do not come back in complaints";
}

TEST_F(Zeqctl, DescribeAndCompletion) {
    EXPECT_EQ(run({"describe", "rx"}), 0);
    EXPECT_NE(out.str().find("rx: Receivers\nmethods: get, set\n"), std::string::npos) << out.str();
    EXPECT_NE(out.str().find("sessionInactivityTimeout  number  read/write  0 to 1440       0"),
              std::string::npos)
        << out.str();
    EXPECT_EQ(run({"describe", "rx/net"}), 0);
    EXPECT_NE(out.str().find("\nprefix  number"), std::string::npos) << out.str();
    EXPECT_EQ(run({"describe"}), 0);
    EXPECT_EQ(out.str(), "RESOURCE  METHODS   WHAT IT IS\nrx        get, set  Receivers\n");

    const struct {
        std::vector<std::string> words;
        const char* offered;
        std::string word = "";
    } rows[] = {
        {{}, "get\nlist\nset\n"},
        {{"get"}, "rx\n"},
        {{"get", "rx", "3"}, "name\nstatus\n"},
        {{"set", "rx", "3"}, "name=\nsessionInactivityTimeout=\n"},
        {{"list", "rx"}, "status=offline\nstatus=ready\n", "status=o"},
        {{"set", "rx", "3"}, "", "name=x"},
        {{"device"}, "offline\nonline\n"},
        {{"help"}, "get\nlist\n"},
        {{"--json"}, ""},
        {{"nonsense", "x"}, ""},
    };
    for (const auto& row : rows) {
        std::vector<std::string> arguments = {"__complete", row.word};
        arguments.insert(arguments.end(), row.words.begin(), row.words.end());
        EXPECT_EQ(run(arguments), 0);
        EXPECT_TRUE(out.str().starts_with(row.offered)) << out.str();
    }
    ::setenv("ZEQ_SOCKET", "/nonexistent", 1);
    EXPECT_EQ(run({"__complete", "", "get"}), 0) << "completion without a service is silent";
    EXPECT_EQ(out.str() + err.str(), "");
}

TEST_F(Zeqctl, HelpTeachesEveryCommand) {
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"}, {"help"}, {"-h"}}) {
        EXPECT_EQ(run(arguments), 0);
        for (const zeqctl::CommandRow& row : zeqctl::commands()) {
            EXPECT_NE(out.str().find(row.synopsis), std::string::npos) << row.name;
        }
    }
    EXPECT_EQ(run({"set", "--help"}), 0);
    EXPECT_NE(out.str().find("usage: zeqctl set"), std::string::npos);
    EXPECT_EQ(run({"--version"}), 0);
    EXPECT_TRUE(peer.requests().empty());
}

/// A service whose table changes from look to look, and which is away for one of them.
TEST(ZeqctlWatch, PrintsChangesAndSurvivesARestart) {
    const char* looks[] = {
        R"({"rows":[{"index":1,"status":"ready","password":"a"},{"index":2,"status":"ready"}]})",
        R"({"rows":[{"index":1,"status":"offline","password":"b"},{"index":2,"status":"ready"}]})",
        nullptr,
        R"({"rows":[{"index":1,"status":"offline","password":"b"},{"index":3,"name":"New"}]})",
        R"({"errors":[{"errno":1009}]})",
    };
    std::atomic<std::size_t> look = 0;
    FakePeer peer([&](const json_t* request) {
        const std::string resource = json_string_value(json_object_get(request, "resource"));
        if (resource == "zeqCatalogue") return FakePeer::answer(request, kCatalogue);
        const char* members = looks[std::min(look++, std::size(looks) - 1)];
        return members ? FakePeer::answer(request, members) : FakePeer::hangUp();
    });
    std::istringstream in;
    std::ostringstream out, err;
    EXPECT_EQ(zeqctl::run({"watch", "rx", "--count", "6", "--interval", "0.05"}, in, out, err), 0);
    std::string lines;
    std::istringstream stamped(out.str());
    for (std::string line; std::getline(stamped, line);) lines += line.substr(line.find("rx")) + '\n';
    EXPECT_EQ(lines, "rx 1  password: ******** -> ********\n"
                     "rx 1  status: ready -> offline\n"
                     "rx 2  deleted\n"
                     "rx 3 'New'  created\n"
                     "rx 1  deleted\n"
                     "rx 3 'New'  deleted\n");
    EXPECT_NE(err.str().find("no answer"), std::string::npos);
    EXPECT_NE(err.str().find("is back"), std::string::npos);
}

} // namespace
