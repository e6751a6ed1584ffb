// Reading responses, rows and collapsed tables.
#include "platform/client/Message.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqRsp.h"

#include <gtest/gtest.h>

using zeq::JsonPtr;

namespace {

JsonPtr parse(const char* text) {
    return JsonPtr(json_loads(text, JSON_DECODE_ANY, nullptr));
}

TEST(ZeqResponses, EveryFormOfATableReadsTheSame) {
    const char* row = R"({"index":7,"name":"Desk","on":true,"count":0,"sub":{"a":1},"list":[1]})";
    const std::string forms[] = {std::string("{\"rows\":[") + row + "]}", std::string("[") + row + "]", row};
    for (const std::string& form : forms) {
        SCOPED_TRACE(form);
        const JsonPtr table = parse(form.c_str());
        for (const json_t* record : {static_cast<const json_t*>(table.get()),
                                     static_cast<const json_t*>(ZeqObj_getRow(table.get(), 0))}) {
            EXPECT_EQ(ZeqRspUtil_getIntegerParam(record, "index"), 7);
            EXPECT_EQ(ZeqRsp_rxGetIndex(record), 7u);
            EXPECT_STREQ(ZeqRsp_rxGetName(record), "Desk");
            EXPECT_TRUE(ZeqRspUtil_getBooleanParam(record, "on"));
            EXPECT_FALSE(ZeqRspUtil_getBooleanParam(record, "count"));
            EXPECT_EQ(ZeqRspUtil_getIntegerParam(ZeqRspUtil_getObjectParam(record, "sub"), "a"), 1);
            EXPECT_EQ(ZeqRspUtil_numEntries(ZeqRspUtil_getObjectParam(record, "list")), 1);
        }
        EXPECT_EQ(ZeqObj_getRow(table.get(), 1), nullptr);
        EXPECT_EQ(ZeqObj_getRow(table.get(), -1), nullptr);
    }
}

TEST(ZeqResponses, AbsentAndWronglyTypedValuesReadAsNothing) {
    const JsonPtr table = parse(R"({"rows":[{"text":"x","number":5,"object":{},"null":null,"real":1.5,
        "badBinary":{"$binary":"A"},"oddBinary":{"$binary":7},"big":4294967296,"negative":-1}]})");
    char buffer[4] = {'k', 'e', 'p', 't'};
    for (const char* key : {"absent", "object", "null", "real", ""}) {
        EXPECT_EQ(ZeqRspUtil_getStringParam(table.get(), key), nullptr) << key;
        EXPECT_EQ(ZeqRspUtil_getIntegerParam(table.get(), key), 0) << key;
        EXPECT_FALSE(ZeqRspUtil_getBooleanParam(table.get(), key)) << key;
    }
    for (const char* key : {"absent", "text", "number", "null", "object", "badBinary", "oddBinary"}) {
        EXPECT_EQ(ZeqRspUtil_getBinaryParam(table.get(), key, buffer, sizeof buffer), 0u) << key;
    }
    EXPECT_EQ(std::string(buffer, 4), "kept");
    EXPECT_EQ(ZeqRspUtil_getStringParam(table.get(), "number"), nullptr);
    EXPECT_EQ(ZeqRspUtil_getObjectParam(table.get(), "text"), nullptr);
    EXPECT_EQ(ZeqRspUtil_getIntegerParam(table.get(), "text"), 0);
    EXPECT_EQ(ZeqRspUtil_getStringParam(table.get(), nullptr), nullptr);
    EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(table.get(), 1, "number"), 0);
    EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(table.get(), -1, "number"), 0);
    for (const json_t* nothing : {static_cast<json_t*>(nullptr), json_true()}) {
        EXPECT_EQ(ZeqRspUtil_numEntries(nothing), 0);
        EXPECT_EQ(ZeqRspUtil_getObjectParam(nothing, "errors"), nullptr);
        EXPECT_EQ(ZeqRsp_userGetRole(nothing), 0);
    }
    const JsonPtr wide = parse(R"({"rows":[{"index":4294967296}]})");
    EXPECT_EQ(ZeqRsp_edidGetIndex(wide.get()), 0u);
}

TEST(ZeqResponses, ARefusalHasErrorsAndNoRows) {
    const JsonPtr refusal = parse(R"({"errors":[{"errno":11,"detail":"name"},{"errno":1007}]})");
    const json_t* errors = ZeqRspUtil_getObjectParam(refusal.get(), "errors");
    EXPECT_EQ(ZeqRspUtil_numEntries(refusal.get()), 0);
    ASSERT_EQ(ZeqRspUtil_numEntries(errors), 2);
    EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(errors, 0, "errno"), 11);
    EXPECT_STREQ(ZeqRspUtil_getIndexedStringParam(errors, 0, "detail"), "name");
    EXPECT_EQ(ZeqRspUtil_getIndexedStringParam(errors, 1, "detail"), nullptr);
    const JsonPtr success = parse(R"({"rows":[]})");
    EXPECT_EQ(ZeqRspUtil_getObjectParam(success.get(), "errors"), nullptr);
}

TEST(ZeqResponses, BinaryIsCutToTheBuffer) {
    const JsonPtr object(ZeqObj_new());
    std::string bytes(256, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i);
    for (const unsigned length : {0u, 1u, 2u, 3u, 4u, 255u, 256u}) {
        ZeqObj_setBinary(object.get(), "data", bytes.data(), length);
        for (const unsigned capacity : {0u, 1u, 2u, 5u, 256u}) {
            std::string buffer(260, 'u');
            const unsigned count = ZeqRspUtil_getBinaryParam(object.get(), "data", buffer.data(), capacity);
            EXPECT_EQ(count, std::min(length, capacity));
            EXPECT_EQ(buffer.substr(0, count), bytes.substr(0, count));
            EXPECT_EQ(buffer.substr(count), std::string(260 - count, 'u')) << "written beyond " << count;
        }
    }
}

TEST(ZeqResponses, EnumerationsBecomeNumbers) {
    const struct {
        int (*get)(const json_t*);
        const char* record;
        int number;
    } rows[] = {
        {ZeqRsp_connectionGetMode, R"({"mode":"share_mode"})", 1},
        {ZeqRsp_connectionGetMode, R"({"mode":"private_mode"})", 2},
        {ZeqRsp_userGetModeAllowed, R"({"modeAllowed":"share_or_private_mode"})", 3},
        {ZeqRsp_userGetModeAllowed, R"({"modeAllowed":"quantum_mode"})", 3},
        {ZeqRsp_userGetModeAllowed, R"({"mode":"share_mode"})", 0},
        {ZeqRsp_swxGetMode, R"({"mode":"master"})", 1},
        {ZeqRsp_swxGetMode, R"({"mode":"slave"})", 2},
        {ZeqRsp_swxGetStatus, R"({"status":"offline"})", 1},
        {ZeqRsp_swxGetStatus, R"({"status":"dc_connected"})", 2},
        {ZeqRsp_swxGetStatus, R"({"status":"conflict_is_master"})", 3},
        {ZeqRsp_swxGetStatus, R"({"status":"conflict_other_master"})", 4},
        {ZeqRsp_swxGetStatus, R"({"status":"isc_failure"})", 5},
        {ZeqRsp_swxGetStatus, R"({"status":"ready"})", 6},
        {ZeqRsp_swxGetStatus, R"({"status":"resetting"})", 7},
        {ZeqRsp_swxGetStatus, R"({"status":"Ready"})", 1},
        {ZeqRsp_swxGetUsage, R"({"usage":"usable"})", 1},
        {ZeqRsp_swxGetUsage, R"({"usage":"exceeds_unmanaged_capacity"})", 2},
        {ZeqRsp_swxGetUsage, R"({"usage":"maintenance"})", 3},
        {ZeqRsp_userGetRole, R"({"role":"user"})", 1},
        {ZeqRsp_userGetRole, R"({"role":"admin"})", 2},
        {ZeqRsp_userGetRole, R"({"role":"owner"})", 1},
        {ZeqRsp_userGetRole, R"({"role":2})", 0},
        {ZeqRsp_userGetAllTargetAccess, R"({"allTargetAccess":"enabled"})", 2},
        {ZeqRsp_userGetAllTargetAccess, R"({"allTargetAccess":"disabled"})", 1},
    };
    for (const auto& row : rows) EXPECT_EQ(row.get(parse(row.record).get()), row.number) << row.record;
}

std::string collapsed(const char* table, const char* rowKey, const char* subKey) {
    const JsonPtr source = parse(table);
    const JsonPtr out(ZeqObj_collapse(source.get(), rowKey, subKey));
    char* text = json_dumps(out.get(), JSON_COMPACT | JSON_SORT_KEYS);
    const std::string result(text ? text : "0");
    std::free(text);
    return result;
}

TEST(ZeqResponses, Collapse) {
    const struct {
        const char* name;
        const char* table;
        const char* subKey;
        const char* expected;
    } rows[] = {
        {"objects", R"({"rows":[{"index":1,"s":{"a":"x"}},{"index":2,"s":{"a":"y"}}]})", "s",
         R"([{"a":"x","index":1},{"a":"y","index":2}])"},
        {"arrays", R"({"rows":[{"index":5,"s":[{"t":1},{"t":2}]},{"index":6,"s":[]}]})", "s",
         R"([{"index":5,"t":1},{"index":5,"t":2}])"},
        {"the row's index wins", R"({"rows":[{"index":5,"s":{"index":9}}]})", "s", R"([{"index":5}])"},
        {"single record", R"({"index":5,"s":{"a":1}})", "s", R"([{"a":1,"index":5}])"},
        {"a row lacks the sub-object", R"([{"index":1},{"index":2,"s":{}}])", "s", R"([{"index":2}])"},
        {"no row has it", R"({"rows":[{"index":1}]})", "s", "[]"},
        {"no row key", R"({"rows":[{"s":{"a":1}}]})", "s", R"([{"a":1}])"},
        {"no rows", R"({"rows":[]})", "s", "[]"},
        {"refusal", R"({"errors":[{"errno":1009}]})", "s", "[]"},
        {"not objects", R"({"rows":[3,{"index":1,"s":[4,"x",{"a":1}]},{"index":2,"s":"text"}]})", "s",
         R"([{"a":1,"index":1}])"},
        {"not a table", "7", "s", "0"},
        {"null keys", R"({"rows":[]})", nullptr, "0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(collapsed(row.table, "index", row.subKey), row.expected) << row.name;
    EXPECT_EQ(collapsed("[]", nullptr, "s"), "0");
    EXPECT_EQ(ZeqObj_collapse(nullptr, "index", "s"), nullptr);
}

TEST(ZeqResponses, CollapseTwiceAndOutliveTheSource) {
    JsonPtr source = parse(R"({"rows":[
        {"index":1,"network":{"ipv4":{"ipAddress":"10.0.0.1"},"ipv6":{"ipAddress":"::1"}}},
        {"index":2,"network":{"ipv4":{"ipAddress":"10.0.0.2"}}}]})");
    JsonPtr network(ZeqObj_collapse(source.get(), "index", "network"));
    const JsonPtr ipv4(ZeqObj_collapse(network.get(), "index", "ipv4"));
    json_object_clear(json_object_get(ZeqObj_getRow(network.get(), 0), "ipv4"));
    source.reset();
    network.reset();
    ASSERT_EQ(ZeqRspUtil_numEntries(ipv4.get()), 2);
    EXPECT_EQ(ZeqRspUtil_getIndexedIntegerParam(ipv4.get(), 1, "index"), 2);
    EXPECT_STREQ(ZeqRspUtil_getIndexedStringParam(ipv4.get(), 0, "ipAddress"), "10.0.0.1");
    EXPECT_STREQ(ZeqRspUtil_getStringParam(ipv4.get(), "ipAddress"), "10.0.0.1");
    EXPECT_EQ(ZeqRspUtil_getObjectParam(ipv4.get(), "errors"), nullptr);
}

} // namespace
