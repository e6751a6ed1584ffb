#include "server/Url.h"

#include "core/Limits.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

using namespace std::string_literals;

TEST(Url, NormalPathNeverLeavesTheRoot) {
    const struct {
        std::string target;
        std::optional<std::string> path;
    } rows[] = {
        {"/", "/"},
        {"/a/b.css?x=/..", "/a/b.css"},
        {"//a///b/", "/a/b/"},
        {"/a/./b/../c", "/a/c"},
        {"/a/..", "/"},
        {"/a/.", "/a/"},
        {"/..", std::nullopt},
        {"/a/../../etc/passwd", std::nullopt},
        {"/%2e%2e/etc", std::nullopt},
        {"/a/%2e%2E%2f%2e%2e/etc", std::nullopt},
        {"/..%2f..%2fetc", std::nullopt},
        {"/a%5c..%5cb", std::nullopt},
        {"/a\\b", std::nullopt},
        {"/a%00.png", std::nullopt},
        {"/a%0d%0aSet-Cookie:x", std::nullopt},
        {"/%", std::nullopt},
        {"/%4", std::nullopt},
        {"/%zz", std::nullopt},
        {"/%c0%ae%c0%ae/", std::nullopt}, // overlong dots
        {"/%ff", std::nullopt},
        {"/%e2%82%ac", "/€"},
        {"", std::nullopt},
        {"a", std::nullopt},
        {"http://host/a", std::nullopt},
        {"/%252e%252e/a", "/%2e%2e/a"}, // decoded once
    };
    for (const auto& row : rows) EXPECT_EQ(normalPath(row.target), row.path) << row.target;
}

TEST(Url, ParametersKeepOrderAndRefuseBrokenOnes) {
    const auto fields = parseParameters("a=1&b=x+y%26z&a=2&&c&=v");
    ASSERT_TRUE(fields);
    EXPECT_EQ(fields->at("a"), (std::vector<std::string>{"1", "2"}));
    EXPECT_EQ(fields->at("b").front(), "x y&z");
    EXPECT_EQ(fields->at("c").front(), "");
    EXPECT_EQ(fields->at("").front(), "v");
    for (const std::string bad : {"a=%", "%zz=1", "a=%00", "a=%ff"})
        EXPECT_FALSE(parseParameters(bad)) << bad;

    std::string many;
    for (std::size_t i = 0; i < kFormFields; ++i) many += "a&";
    EXPECT_TRUE(parseParameters(many));
    EXPECT_FALSE(parseParameters(many + "a"));
}

TEST(Url, Utf8AsTheStandardHasIt) {
    const struct {
        std::string text;
        bool valid;
    } rows[] = {
        {"", true},
        {"aé€😀", true},
        {"\x80"s, false},
        {"\xc1\xbf"s, false},
        {"\xe0\x9f\xbf", false},
        {"\xed\xa0\x80", false},
        {"\xf0\x8f\xbf\xbf", false},
        {"\xf4\x90\x80\x80", false},
        {"\xe2\x82", false},
        {"\xf5\x80\x80\x80", false},
    };
    for (const auto& row : rows) EXPECT_EQ(isUtf8(row.text), row.valid) << row.text;
}

} // namespace
} // namespace Wt::Impl
