#include "db/ZeqPtr.h"
#include "db/ZeqRows.h"

#include <gtest/gtest.h>

namespace {

ZeqPtr parsed(const char* json) {
    return ZeqPtr(json_loads(json, JSON_DECODE_ANY, nullptr));
}

TEST(ZeqRows, AreTheRecordsOfWhateverCarriesThem) {
    static_assert(std::ranges::forward_range<ZeqRows> && std::ranges::view<ZeqRows>);
    const struct {
        const char* json; // "" stands for no answer
        std::string indexes;
    } rows[] = {
        {"", ""},
        {R"({"rows":[{"index":3},{"index":1},{"index":2}]})", "3 1 2 "},
        {R"([{"index":5}])", "5 "},
        {R"([7,{"index":5},null,"x",[{"index":6}],{"index":8},false])", "5 8 "},
        {R"([7])", ""},
        {R"({"rows":[]})", ""},
        {R"({"errors":[{"errno":9,"index":4}]})", ""},
        {R"({"index":4})", ""},
        {R"("text")", ""},
    };
    for (const auto& row : rows) {
        const ZeqPtr answer = parsed(row.json);
        const ZeqRows records(answer.get());
        std::string indexes;
        for (const ZeqRow record : records) indexes += std::to_string(record.number("index")) + " ";
        EXPECT_EQ(indexes, row.indexes) << row.json;
        EXPECT_EQ(records.empty(), row.indexes.empty()) << row.json;
        EXPECT_EQ(std::ranges::distance(records) * 2, std::ptrdiff_t(row.indexes.size())) << row.json;
    }
}

TEST(ZeqRows, ARowReadsWhatIsNotThereAsNothing) {
    const ZeqPtr record =
        parsed(R"({"name":"Desk 1","empty":"","index":7,"since":4102444800,"on":true,"none":null})");
    const ZeqRow row(record.get());
    const struct {
        const char* key;
        bool has;
        const char* text;
        json_int_t number;
    } rows[] = {
        {"name", true, "Desk 1", 0}, {"empty", true, "", 0},
        {"index", true, "", 7},      {"since", true, "", 4102444800}, // beyond 31 bits
        {"on", true, "", 1},         {"none", true, "", 0},
        {"absent", false, "", 0},
    };
    for (const auto& expected : rows) {
        EXPECT_EQ(row.has(expected.key), expected.has) << expected.key;
        EXPECT_EQ(row.text(expected.key), expected.text) << expected.key;
        EXPECT_EQ(row.time(expected.key), expected.number) << expected.key;
        EXPECT_EQ(row.number(expected.key), static_cast<unsigned>(expected.number)) << expected.key;
    }
    EXPECT_EQ(ZeqRow(nullptr).text("name"), "");
    EXPECT_FALSE(ZeqRow(nullptr).has("name"));
}

} // namespace
