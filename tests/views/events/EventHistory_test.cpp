// The file of the event history, byte for byte.

#include "tests/db/DbTest.h"
#include "views/events/EventHistoryResource.h"

#include <cstdlib>
#include <ctime>
#include <sstream>

namespace {

class EventHistory : public DbTest {
protected:
    EventHistory() {
        setenv("TZ", "UTC", 1);
        tzset();
    }
    ~EventHistory() override {
        unsetenv("TZ");
        tzset();
    }

    void put(unsigned instance, const std::string& severity, const std::string& message) {
        store.put("historicalAlerts", instance,
                  R"("date":1236218649,"severity":")" + severity +
                      R"(","originatorEid":"00A702-020011","alertMsg":")" + message + "\"");
    }
    static std::string file() {
        EventHistoryResource resource;
        std::ostringstream out;
        resource.write(out);
        return out.str();
    }
    /// Of the file's line (from 0) the message, with its quotes.
    static std::string message(const std::string& file, std::size_t line) {
        std::istringstream lines(file);
        std::string text;
        for (std::size_t i = 0; i <= line; ++i) std::getline(lines, text);
        return text.substr(text.find("020011") + 8);
    }
};

TEST_F(EventHistory, OneLineAnEventWithMonthAndDayUnpadded) {
    put(1, "warning", "Fan failed.");
    put(2, "error", R"(said \"no\", twice)");
    put(3, "verbose", "");
    EXPECT_EQ(file(), "\"2009-3-5 02:04:09\",\"Warning\",\"00A702-020011\",\"Fan failed.\"\n"
                      "\"2009-3-5 02:04:09\",\"Error\",\"00A702-020011\",\"said 'no', twice\"\n"
                      "\"2009-3-5 02:04:09\",\"Unknown\",\"00A702-020011\",\"\"\n");
}

TEST_F(EventHistory, MessagesAreCutAt400BytesAndNoCharacterIsHalved) {
    put(1, "info", std::string(400, 'a'));
    put(2, "info", std::string(500, 'b'));
    put(3, "info", std::string(399, 'c') + "é");
    put(4, "info", std::string(398, 'd') + "éé");
    put(5, "info", std::string(398, 'e') + "€");
    const std::string all = file();
    EXPECT_EQ(message(all, 0).size(), 402u) << "and its quotes";
    EXPECT_EQ(message(all, 1), "\"" + std::string(400, 'b') + "\"");
    EXPECT_EQ(message(all, 2), "\"" + std::string(399, 'c') + "\"");
    EXPECT_EQ(message(all, 3), "\"" + std::string(398, 'd') + "é\"");
    EXPECT_EQ(message(all, 4), "\"" + std::string(398, 'e') + "\"");
}

TEST_F(EventHistory, NoCellIsAFormula) {
    unsigned instance = 0;
    for (const char* begin : {"=", "+", "-", "@", "\\t", "\\r"})
        put(++instance, "info", begin + std::string("cmd()"));
    put(++instance, "info", "a=cmd()");
    put(++instance, "info", R"(\"=cmd())");
    const std::string all = file();
    for (const char* begin : {"=", "+", "-", "@", "\t", "\r"})
        EXPECT_NE(all.find(std::string(",\"'") + begin + "cmd()\"\n"), std::string::npos) << begin;
    EXPECT_EQ(message(all, 6), "\"a=cmd()\"");
    EXPECT_EQ(message(all, 7), "\"'=cmd()\"") << "the quote has become an apostrophe";
}

TEST_F(EventHistory, EndsInWordsWhereAnEventHasNoOriginator) {
    put(1, "info", "one");
    store.put("historicalAlerts", 2, R"("date":0,"severity":"info","alertMsg":"two")");
    put(3, "info", "three");
    const std::string all = file();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 2);
    EXPECT_NE(all.find("The history is incomplete"), std::string::npos);
    EXPECT_EQ(all.find("three"), std::string::npos);
}

TEST_F(EventHistory, EveryPieceFollowsTheOneBefore) {
    for (unsigned instance = 1; instance <= 301; ++instance)
        put(instance, "info", "event " + std::to_string(instance));
    store.forget();
    std::istringstream lines(file());
    unsigned seen = 0;
    for (std::string line; std::getline(lines, line);)
        EXPECT_TRUE(line.ends_with("\"event " + std::to_string(++seen) + "\"")) << line;
    EXPECT_EQ(seen, 301u);
    EXPECT_EQ(store.requests().size(), 1u) << "asked once";
    store.hangUp();
    EXPECT_EQ(file(), "");
}

} // namespace
