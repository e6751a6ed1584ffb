#include "validators/Pattern.h"

#include <Wt/WIntValidator.h>
#include <Wt/WRegExpValidator.h>

#include <gtest/gtest.h>

using namespace Wt;

namespace {

// The address expressions of the product are of this shape: nested alternatives over colon groups.
const char* const kIpV6 =
    "^((([0-9A-Fa-f]{1,4}:){7}([0-9A-Fa-f]{1,4}|:))|(([0-9A-Fa-f]{1,4}:){6}(:[0-9A-Fa-f]{1,4}|:))|"
    "(([0-9A-Fa-f]{1,4}:){1}(((:[0-9A-Fa-f]{1,4}){1,6})|((:[0-9A-Fa-f]{1,4}){0,4}:"
    "((25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])"
    "(.(25[0-5]|2[0-4][0-9]|1[0-9][0-9]|[1-9]?[0-9])){3}))|:)))$|^$";

} // namespace

TEST(RegExpValidator, wholeTextDecides) {
    const struct {
        const char* pattern;
        std::string text;
        WValidator::State state;
    } rows[] = {
        {"", "anything", WValidator::Valid},
        {"[0-9]+", "12", WValidator::Valid},
        {"[0-9]+", "12a", WValidator::Invalid},
        {"[0-9]+", "", WValidator::Valid}, // not mandatory
        {"^([ -~]*)$", "plain text", WValidator::Valid},
        {"^([ -~]*)$", "plain\n", WValidator::Invalid}, // $ is the end, not the last line break
        {"^([ -~\n]*)$", "two\nlines\n", WValidator::Valid},
        {"([ -~\n]{0,64})", std::string(64, 'x'), WValidator::Valid},
        {"([ -~\n]{0,64})", std::string(65, 'x'), WValidator::Invalid},
        {".{3}", "äöü", WValidator::Valid}, // characters, not bytes
        {"a|ab", "ab", WValidator::Valid},  // the shorter branch is not the last word
        {"(", "(", WValidator::Invalid},
        {"(a+)+$", std::string(5000, 'a') + "!",
         WValidator::Invalid}, // exponential where it is taken literally
        {"(.*)*x\\1", std::string(30000, 'y'), WValidator::Invalid},
        {"(?R)?a", std::string(60000, 'a'), WValidator::Invalid}, // deep recursion
        {kIpV6, "fe80::1", WValidator::Valid},
        {kIpV6, "fe80:::1", WValidator::Invalid},
        {kIpV6, std::string(60000, ':'), WValidator::Invalid},
        {kIpV6, "1" + std::string(30000, ':') + "1.1.1.1", WValidator::Invalid},
        {".*", std::string(Impl::Pattern::kMaxTextBytes + 1, 'x'), WValidator::Invalid},
        {".*", "\xff\xfe", WValidator::Valid}, // bytes that are no UTF-8 arrive as replacement characters
    };
    for (const auto& row : rows) {
        const WRegExpValidator validator(row.pattern);
        EXPECT_EQ(validator.validate(WString(row.text)).state(), row.state)
            << row.pattern << " on " << row.text.substr(0, 40);
    }
}

TEST(RegExpValidator, mandatoryAndMessages) {
    WRegExpValidator validator;
    validator.setMandatory(true);
    EXPECT_EQ(validator.validate("").state(), WValidator::InvalidEmpty);
    EXPECT_FALSE(validator.validate("").message().empty());
    validator.setRegExp("a");
    validator.setInvalidNoMatchText("only a");
    EXPECT_EQ(validator.validate("b").message(), WString("only a"));
    EXPECT_EQ(validator.validate("A").state(), WValidator::Invalid);
    validator.setFlags(MatchCaseInsensitive);
    EXPECT_EQ(validator.validate("A").state(), WValidator::Valid);
    validator.setRegExp("");
    EXPECT_EQ(validator.validate("b").state(), WValidator::Valid);
}

TEST(IntValidator, range) {
    const struct {
        const char* text;
        bool mandatory, valid;
    } rows[] = {
        {"0", false, true},    {"127", false, true},  {"128", false, false},
        {"-1", false, false},  {"", false, true},     {"", true, false},
        {"+5", false, false},  {"+-5", false, false}, {"+", false, false},
        {"-", false, false},   {"5 ", false, false},  {" 5", false, false},
        {"0x5", false, false}, {"1e2", false, false}, {"99999999999999999999", false, false},
        {"007", false, true},  {"5.0", false, false}, {"-99999999999999999999", false, false},
    };
    for (const auto& row : rows) {
        WIntValidator validator(0, 127);
        validator.setMandatory(row.mandatory);
        EXPECT_EQ(validator.validate(row.text).state() == WValidator::Valid, row.valid) << row.text;
    }
    EXPECT_EQ(WIntValidator(1, 9).validate("10").message(), WString("The number must be at most 9"));
    EXPECT_EQ(WIntValidator(1, 9).validate("0").message(), WString("The number must be at least 1"));
}
