// WString, WLength and the message bundle.
#include "tests/toolkit/support/PageSession.h"

#include <Wt/WLength>
#include <Wt/WMessageResourceBundle>
#include <Wt/WString>
#include <Wt/WStringUtil>

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>

namespace {

using Wt::WString;

TEST(WString, fills_places_and_leaves_what_is_none) {
    const struct {
        const char* text;
        const char* want;
    } rows[] = {{"{1}-{2}", "a-b"}, {"{2}{1}{2}", "bab"}, {"{3}", "{3}"}, {"{0}", "{0}"},
                {"{", "{"},         {"{1", "{1"},         {"{}", "{}"},   {"{99999999999}", "{99999999999}"},
                {"{ 1}", "{ 1}"}};
    for (const auto& row : rows)
        EXPECT_EQ(WString(row.text).arg("a").arg("b").toUTF8(), row.want) << row.text;
    EXPECT_EQ(WString("{1}").arg(WString("{2}")).arg("x").toUTF8(), "{2}"); // not filled again
}

TEST(WString, wide_text_and_back) {
    const std::string text = "a\u00e9\u20ac\U0001F600";
    EXPECT_EQ(Wt::toUTF8(Wt::fromUTF8(text)), text);
    EXPECT_EQ(Wt::fromUTF8("\xff\xc0\x80").size(), 3U);
    EXPECT_EQ(WString("  x y\n").trim().toUTF8(), "x y");
}

TEST(WString, a_key_reads_as_the_bundle_says_now) {
    toolkit_test::PageSession session;
    const WString known = WString::tr("greeting").arg("Ann"), unknown = WString::tr("no.such");
    EXPECT_EQ(known.toUTF8(), "??greeting??");
    const std::string file = ::testing::TempDir() + "/toolkit-messages";
    std::ofstream(file + ".xml") << "<messages><message id=\"greeting\">Hello {1} &amp; all</message>"
                                    "<message id=\"bold\"><b>a &lt; b</b></message></messages>";
    session.application->messageResourceBundle().use(file);
    std::remove((file + ".xml").c_str());
    EXPECT_EQ(known.toUTF8(), "Hello Ann & all");
    EXPECT_EQ(WString::tr("bold").toUTF8(), "<b>a &lt; b</b>");
    EXPECT_EQ(unknown.toUTF8(), "??no.such??");
    EXPECT_EQ(unknown.key(), "no.such");
    EXPECT_FALSE(known.literal());
    EXPECT_TRUE((known + WString("!")).literal());
}

TEST(WLength, reads_and_writes_css) {
    const struct {
        const char* text;
        const char* want;
        double pixels;
    } rows[] = {{"4px", "4px", 4},    {"1.5em", "1.5em", 24}, {"50%", "50%", 8},   {"1in", "1in", 96},
                {"auto", "auto", 0},  {"7", "7px", 7},        {"7pxx", "auto", 0}, {"", "auto", 0},
                {"-3px", "-3px", -3}, {"nanpx", "auto", 0}};
    for (const auto& row : rows) {
        EXPECT_EQ(Wt::WLength(row.text).cssText(), row.want) << row.text;
        EXPECT_DOUBLE_EQ(Wt::WLength(row.text).toPixels(), row.pixels) << row.text;
    }
}

} // namespace
