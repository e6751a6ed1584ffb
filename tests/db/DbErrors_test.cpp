#include "tests/db/DbTest.h"

#include "platform/client/ZeqObj.h"

#include <Wt/WString>

namespace {

class DbErrors : public DbTest {
protected:
    /// An "errors" array of JSON text, translated.
    Db::Errors interp(const char* array, bool ignoreNoEntries = false) {
        json_t* parsed = json_loads(array, 0, nullptr);
        Db::Errors texts;
        Db::db.interpZeqErrors(parsed, texts, ignoreNoEntries);
        Db::db.zeqObjFree(parsed);
        EXPECT_EQ(parsed, nullptr);
        return texts;
    }

    static std::string tr(const char* key) { return Wt::WString::tr(key).toUTF8(); }
};

TEST_F(DbErrors, MessagesAreMadeOfTextAndDetail) {
    const struct {
        const char* array;
        bool ignoreNoEntries;
        Db::Errors expected;
    } rows[] = {
        {R"([])", false, {}},
        {R"([{"errno":9}])", false, {tr("[RSnnn]Invalid parameter") + "."}},
        {R"([{"errno":9},{"errno":1120}])",
         false,
         {tr("[RSnnn]Invalid parameter") + ".", tr("result.failure.connection_topology_error") + "."}},
        {R"([{"errno":1130}])", false, {tr("result.failure.delete_offline_peer_not_permitted") + "."}},
        {R"([{"errno":1009}])", false, {tr("[RSnnn]No entries") + "."}},
        {R"([{"errno":1009}])", true, {}},
        {R"([{"errno":1009},{"errno":10}])", true, {tr("[RSnnn]Value out of range") + "."}},
        {R"([{"errno":2}])", false, {"[RSnnn]Unknown error."}},
        {R"([{"errno":-1,"detail":"[RSnnn]Close"}])",
         false,
         {"[RSnnn]Unknown error: " + tr("[RSnnn]Close") + "."}},
        {R"([{"errno":9,"detail":"no.such.key"}])",
         false,
         {tr("[RSnnn]Invalid parameter") + ": ??no.such.key??."}},
        {R"([{"errno":9,"detail":""}])", false, {tr("[RSnnn]Invalid parameter") + ": " + tr("") + "."}},
        {R"([{}])", false, {"[RSnnn]Unknown error."}},
    };
    for (const auto& r : rows) EXPECT_EQ(interp(r.array, r.ignoreNoEntries), r.expected) << r.array;
}

TEST_F(DbErrors, EveryNumberHasAWordInTheBundle) {
    const int numbers[] = {1,    4,    6,    7,    8,    9,    10,   11,   12,   13,   14,   15,
                           16,   17,   18,   1001, 1002, 1003, 1004, 1005, 1006, 1007, 1008, 1009,
                           1010, 1011, 1012, 1013, 1014, 1101, 1102, 1103, 1104, 1105, 1106, 1107,
                           1108, 1109, 1110, 1111, 1112, 1113, 1114, 1115, 1116, 1117, 1118, 1119,
                           1120, 1121, 1122, 1123, 1124, 1125, 1126, 1127, 1128, 1129, 1130};
    for (const int number : numbers) {
        const Db::Errors texts = interp(("[{\"errno\":" + std::to_string(number) + "}]").c_str());
        ASSERT_EQ(texts.size(), 1U) << number;
        EXPECT_EQ(texts[0].find("??"), std::string::npos) << texts[0];
        EXPECT_EQ(texts[0].find("[RSnnn]"), std::string::npos) << texts[0];
    }
    EXPECT_TRUE(log.lines().empty());
}

TEST_F(DbErrors, OddOnesAreLogged) {
    interp(R"([{"errno":4711}])");
    EXPECT_EQ(log.messages(2), std::vector<std::string>{"Unknown ZEQ error number 4711."});
    interp(R"([{"errno":9,"detail":"no.such.key"}])");
    EXPECT_EQ(log.messages(1),
              std::vector<std::string>{"Untranslated ZEQ error detail string: \"no.such.key\""});
}

TEST_F(DbErrors, LoggedTextsMayHoldPercentSigns) {
    Db::db.logZeqErrors({"100 % of %s and %n.", "old one.", "%"});
    const auto lines = log.lines();
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].message, "100 % of %s and %n.");
    EXPECT_EQ(lines[0].function, "logZeqErrors");
    EXPECT_EQ(lines[1].message, "old one.");
}

TEST_F(DbErrors, ARefusalIsTranslatedOnceAndLoggedWithWhatStoodThere) {
    store.refuse("set", "rx", 3, R"({"errno":10,"detail":"[RSnnn]Name"})");
    errors = {"from an earlier call"};
    EXPECT_EQ(Db::db.writeString("rx", 3, "name", "x", errors), 1U);
    ASSERT_EQ(errors.size(), 2U);
    EXPECT_EQ(errors[1].find(tr("[RSnnn]Value out of range") + ": "), 0U);
    EXPECT_EQ(log.messages(1).size(), 2U) << "the vector as a whole is logged";
}

} // namespace
