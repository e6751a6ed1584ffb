#include "tests/db/DbTest.h"

#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"

namespace {

// Reads 1 to 5 of "rx": 1 and 2 agree, 3 differs, 4 lacks the keys, 5 is refused.
class DbMerge : public DbTest {
protected:
    DbMerge() {
        store.put("rx", 1, R"("name":"A","n":7,"on":"enabled")");
        store.put("rx", 2, R"("name":"A","n":7,"on":"enabled")");
        store.put("rx", 3, R"("name":"B","n":8,"on":"disabled")");
        store.put("rx", 4, "");
        store.put("rx", 5, R"("name":"A","n":7,"on":"enabled")");
        store.refuse("get", "rx", 5);
    }
};

struct Expected {
    Db::Indexes indexes;
    unsigned result;
    bool same;
    const char* name;
    unsigned number;
    std::size_t requests;
};

TEST_F(DbMerge, ReadsStopAtTheFirstDifferenceOrFailure) {
    const Expected rows[] = {
        {{}, 0, true, "", 0, 0},         {{1}, 0, true, "A", 7, 1},    {{1, 2}, 0, true, "A", 7, 2},
        {{1, 2, 1}, 0, true, "A", 7, 3}, {{1, 3}, 0, false, "", 0, 2}, {{1, 3, 5}, 0, false, "", 0, 2},
        {{1, 2, 3}, 0, false, "", 0, 3}, {{5}, 1, true, "", 0, 1},     {{1, 5, 3}, 1, true, "", 0, 2},
        {{1, 99}, 1, true, "", 0, 2},
    };
    for (const Expected& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.indexes));
        std::string name = "old";
        unsigned number = 4711;
        bool same = !r.same;
        store.forget();
        EXPECT_EQ(Db::db.readStringMerge("rx", r.indexes, "name", name, same, errors), r.result);
        EXPECT_EQ(store.requests().size(), r.requests);
        EXPECT_EQ(name, r.name);
        EXPECT_EQ(same, r.same);
        store.forget();
        same = !r.same;
        EXPECT_EQ(Db::db.readUInt32Merge("rx", r.indexes, "n", number, same, errors), r.result);
        EXPECT_EQ(store.requests().size(), r.requests);
        EXPECT_EQ(number, r.number);
        EXPECT_EQ(same, r.same);
    }
}

TEST_F(DbMerge, ExtractsFindTheRowsWhateverTheirOrder) {
    const ZeqPtr table(json_loads(
        R"({"rows":[{"index":3,"name":"B","n":8,"on":"disabled"},{"index":1,"name":"A","n":7,"on":"enabled"},
                    {"index":4},{"index":2,"name":"A","n":7,"on":"enabled"}]})",
        0, nullptr));
    const Expected rows[] = {
        {{}, 0, true, "", 0, 0},         {{2}, 0, true, "A", 7, 0},        {{2, 1}, 0, true, "A", 7, 0},
        {{1, 3}, 0, false, "", 0, 0},    {{1, 3, 99}, 0, false, "", 0, 0}, {{99}, 1, true, "", 0, 0},
        {{1, 99, 3}, 1, true, "", 0, 0},
    };
    for (const Expected& r : rows) {
        SCOPED_TRACE(testing::PrintToString(r.indexes));
        std::string name = "old";
        unsigned number = 4711;
        bool on = true;
        bool same = !r.same;
        EXPECT_EQ(Db::db.extractStringMerge(table.get(), r.indexes, "name", name, same), r.result);
        EXPECT_EQ(name, r.name);
        EXPECT_EQ(same, r.same);
        EXPECT_EQ(Db::db.extractUInt32Merge(table.get(), r.indexes, "n", number, same), r.result);
        EXPECT_EQ(number, r.number);
        EXPECT_EQ(Db::db.extractEnableDisableMerge(table.get(), r.indexes, "on", on, same), r.result);
        EXPECT_EQ(on, r.number == 7);
    }
    std::string name;
    bool same = true;
    EXPECT_EQ(Db::db.extractStringMerge(table.get(), {1, 4}, "name", name, same), 1U)
        << "a row without the key";
    EXPECT_TRUE(store.requests().empty());
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(DbMerge, FindSearchesInTheOrderOfTheRows) {
    unsigned found = 0;
    EXPECT_EQ(Db::db.findIndexOfStringKey("rx", "index", "name", "B", found, errors), 0U);
    EXPECT_EQ(found, 3U);
    EXPECT_EQ(Db::db.findIndexOfStringKey("rx", "n", "name", "A", found, errors), 0U);
    EXPECT_EQ(found, 7U);
    EXPECT_EQ(Db::db.findIndexOfUInt32Key("rx", "n", 8, found, errors), 0U);
    EXPECT_EQ(found, 3U);
    found = 4711;
    EXPECT_EQ(Db::db.findIndexOfStringKey("rx", "index", "name", "a", found, errors), 1U);
    EXPECT_EQ(Db::db.findIndexOfUInt32Key("rx", "n", 9, found, errors), 1U);
    EXPECT_EQ(found, 4711U);
    EXPECT_TRUE(errors.empty());
}

TEST_F(DbMerge, AResourceWithoutEntriesIsNotFoundButOnlyANumberIsSearchedInSilence) {
    unsigned found = 0;
    EXPECT_EQ(Db::db.findIndexOfUInt32Key("connection", "rxIndex", 1, found, errors), 1U);
    EXPECT_TRUE(errors.empty());
    EXPECT_TRUE(log.messages(1).empty());
    EXPECT_EQ(Db::db.findIndexOfStringKey("connection", "index", "mode", "x", found, errors), 1U);
    EXPECT_EQ(errors.size(), 1U);
    EXPECT_EQ(log.messages(1).size(), 1U);
}

} // namespace
