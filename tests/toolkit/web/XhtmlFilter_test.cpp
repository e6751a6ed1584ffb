#include "text/XhtmlFilter.h"

#include <gtest/gtest.h>

namespace {

using namespace Wt::Impl;

TEST(XhtmlFilter, lets_harmless_markup_through_and_nothing_else) {
    const struct {
        const char* text;
        const char* want; // null: not well-formed
    } rows[] = {
        {"a<b>c</b> d", R"(["a",["b",{},"c"]," d"])"},
        {"<B CLASS=\"k\">x</B>", R"([["b",{"class":"k"},"x"]])"},
        {"<script>alert(1)</script>x", R"(["x"])"},
        {"<svg><script>1</script></svg>", "[]"},
        {"<i onclick=\"x()\" style=\"a:b\" title=\"t\">y</i>", R"([["i",{"title":"t"},"y"]])"},
        {"<a href=\"javascript:x\">l</a>", R"([["a",{},"l"]])"},
        {"<a href=\" java&#10;script:x\">l</a>", R"([["a",{},"l"]])"},
        {"<a href=\"JAVASCRIPT&#58;x\">l</a>", R"([["a",{},"l"]])"},
        {"<img src=\"data:text/html,x\"/>", R"([["img",{}]])"},
        {"<a href=\"/x?a=b:c\">l</a>", R"([["a",{"href":"/x?a=b:c"},"l"]])"},
        {"<form><input name=\"x\"/>t</form>", R"(["t"])"},
        {"<foo>in<b>side</b></foo>", R"(["in",["b",{},"side"]])"},
        {"a&nbsp;b&lt;c&gt;", "[\"a\u00A0b<c>\"]"},
        {"<![CDATA[<b>]]>", R"(["<b>"])"},
        {"<!-- c -->x<?pi y?>", R"(["x"])"},
        {"</x><script>1</script><x>", nullptr},
        {"<b>x", nullptr},
        {"a < b", nullptr},
        {"<1>", nullptr},
        {"", "[]"},
    };
    for (const auto& row : rows) {
        const auto got = filterXhtml(row.text);
        EXPECT_EQ(got.has_value(), row.want != nullptr) << row.text;
        if (got && row.want) {
            EXPECT_EQ(*got, row.want) << row.text;
        }
    }
}

TEST(XhtmlFilter, refuses_what_is_too_deep_or_too_long) {
    std::string deep;
    for (int i = 0; i < 70; ++i) deep += "<b>";
    for (int i = 0; i < 70; ++i) deep += "</b>";
    EXPECT_FALSE(filterXhtml(deep));
    EXPECT_EQ(xhtmlToPlain(deep), deep);
    EXPECT_FALSE(filterXhtml(std::string(kMaxXhtmlBytes + 1, 'a')));
    EXPECT_FALSE(filterXhtml(std::string("a\0<b>x</b>", 10)));
}

TEST(XhtmlFilter, gives_the_text_alone) {
    EXPECT_EQ(xhtmlToPlain("a<br/>b <i>c</i><script>d</script>"), "a\nb c");
    EXPECT_EQ(xhtmlToPlain("a < b"), "a < b");
}

} // namespace
