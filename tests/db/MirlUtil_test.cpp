#include "db/MirlUtil.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <regex>

namespace {

TEST(MirlUtil, DurationByItsLargestUnit) {
    const struct {
        unsigned seconds;
        const char* text;
    } rows[] = {
        {0, "0:00"},
        {59, "0:59"},
        {60, "1:00"},
        {3599, "59:59"},
        {3600, "1:00:00"},
        {86399, "23:59:59"},
        {86400, "1:00:00:00"},
        {90061, "1:01:01:01"},
        {8640000, "100:00:00:00"},
        {4294967295U, "49710:06:28:15"},
    };
    for (const auto& r : rows) EXPECT_EQ(MirlUtil_secsToFormattedTimeString(r.seconds), r.text);
}

TEST(MirlUtil, NaturalOrder) {
    const struct {
        const char *a, *b;
        bool less;
    } rows[] = {
        {"rx9", "rx10", true},
        {"rx10", "rx9", false},
        {"a10b", "a9b", true},
        {"", "", false},
        {"", "a", true},
        {"a", "", false},
        {"10", "-3", false},
        {"-3", "10", true},
        {"a-3", "a5", true},
        {"a-3", "a-5", true},
        {"1-2", "1-10", false},
        {"rx", "rx1", true},
        {"rx1", "rx", false},
        {"rx1", "rx1", false},
        {"rx01", "rx1", false},
        {"rx1", "rx01", false},
        {"B", "a", true},
        {"a1 ", "a10", true},
        {"a", "a-", true},
        {"a-", "a-1", true},
        {"2 2", "10", false},
        {"rx-", "rx5", true},
        // An overflow is no number: compared as text.
        {"99999999999999999999", "100000000000000000000", false},
        {"9223372036854775807", "9223372036854775806", false},
        {"-9223372036854775808", "-9223372036854775807", false},
    };
    for (const auto& r : rows) EXPECT_EQ(MirlUtil_lessThan(r.a, r.b), r.less) << r.a << " < " << r.b;
}

// Step by step from the rule, with regular expressions instead of pointers.
bool lessByTheRule(std::string a, std::string b) {
    if (a.empty()) return !b.empty();
    if (b.empty()) return false;
    std::size_t p = 0;
    while (p < a.size() && p < b.size() && a[p] == b[p] && !std::isdigit(static_cast<unsigned char>(a[p])))
        ++p;
    if (p == a.size()) return p < b.size();
    if (p == b.size()) return false;
    a = a.substr(p);
    b = b.substr(p);
    static const std::regex number("-?[0-9]+");
    if (std::regex_match(a, number) && std::regex_match(b, number)) return std::stol(a) < std::stol(b);
    return a < b;
}

TEST(MirlUtil, NaturalOrderOfRandomTexts) {
    std::mt19937 random(7);
    const std::string alphabet = "ab-019 ";
    const auto text = [&] {
        std::string s(random() % 7, ' ');
        for (char& c : s) c = alphabet[random() % alphabet.size()];
        return s;
    };
    for (int i = 0; i < 50000; ++i) {
        const std::string a = text();
        const std::string b = random() % 4 ? text() : a.substr(0, a.size() / 2) + text();
        ASSERT_EQ(MirlUtil_lessThan(a, b), lessByTheRule(a, b)) << "'" << a << "' < '" << b << "'";
    }
}

// A sort that trusts the order would leave its bounds here: the texts below form circles.
TEST(MirlUtil, SortsTextsOverWhichTheOrderContradictsItself) {
    EXPECT_TRUE(MirlUtil_lessThan("a2", "a10") && MirlUtil_lessThan("a10", "a1b") &&
                MirlUtil_lessThan("a1b", "a2"));
    std::mt19937 random(3);
    const std::string alphabet = "ab-0129 ";
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> texts(random() % 300);
        for (std::string& text : texts)
            for (std::size_t i = random() % 6; i; --i) text += alphabet[random() % alphabet.size()];
        std::vector<std::string> sorted = texts;
        MirlUtil_sort(sorted);
        EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.end(), texts.begin(), texts.end()));
    }
}

TEST(MirlUtil, SortsNamesNaturallyAndStably) {
    std::vector<std::string> names;
    MirlUtil_sort(names);
    EXPECT_TRUE(names.empty());
    for (int i = 500; i >= 0; --i) names.push_back("op" + std::to_string(i));
    names.insert(names.begin(), {"anna", "op007", "op7"}); // the last two are equal to the order
    MirlUtil_sort(names);
    EXPECT_EQ(names.front(), "anna");
    EXPECT_EQ(names.back(), "op500");
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), MirlUtil_lessThan));
    const auto first = std::find(names.begin(), names.end(), "op007");
    EXPECT_EQ(*std::next(first), "op7") << "equal ones keep their order";
}

TEST(MirlUtil, ErrorsStandOnLinesOfTheirOwn) {
    std::string text = "Could not be saved.";
    MirlUtil_concatErrMsgs(text, {});
    EXPECT_EQ(text, "Could not be saved.");
    MirlUtil_concatErrMsgs(text, {"Too long.", "100 % wrong."});
    EXPECT_EQ(text, "Could not be saved.\nToo long.\n100 % wrong.");
}

} // namespace
