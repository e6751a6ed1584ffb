#include "shell/DocRoot.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

namespace {

std::string find(const std::vector<std::string>& arguments, const std::optional<std::string>& environment) {
    if (environment) {
        setenv("WT_APP_ROOT", environment->c_str(), 1);
    } else {
        unsetenv("WT_APP_ROOT");
    }
    std::vector<const char*> argv = {"mirl"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    char root[kDocRootSize + 1];
    root[kDocRootSize] = '#'; // a write behind the buffer shows
    DocRoot_find(static_cast<int>(argv.size()), argv.data(), root);
    EXPECT_EQ(root[kDocRootSize], '#');
    unsetenv("WT_APP_ROOT");
    return root;
}

TEST(DocRoot, IsScannedAsItAlwaysWas) {
    const std::string longValue(200, 'x');
    struct {
        const char* what;
        std::vector<std::string> arguments;
        std::optional<std::string> environment;
        std::string root;
    } rows[] = {
        {"value behind =", {"--docroot=/a"}, {}, "/a"},
        {"value in the next argument is not taken", {"--docroot", "/a"}, {}, "."},
        {"value in the next argument, environment set", {"--docroot", "/a"}, "/env", "/env"},
        {"value behind a blank in the same argument", {"--docroot /a"}, {}, "/a"},
        {"equal signs and blanks in any mix", {"--docroot==  \t=/a"}, {}, "/a"},
        {"only equal signs", {"--docroot=="}, {}, "."},
        {"the last usable one wins", {"--docroot=/a", "--http-port=1", "--docroot=/b"}, {}, "/b"},
        {"an unusable one behind a usable one", {"--docroot=/a", "--docroot="}, {}, "/a"},
        {"anything that begins so", {"--docrootx"}, {}, "x"},
        {"not at the beginning", {"x--docroot=/a"}, {}, "."},
        {"shorter than the option", {"--docroo", "-", ""}, {}, "."},
        {"not split at ; or ,", {"--docroot=/a;/b,/c"}, {}, "/a;/b,/c"},
        {"cut to what fits", {"--docroot=" + longValue}, {}, longValue.substr(0, 127)},
        {"environment cut to what fits", {}, longValue, longValue.substr(0, 127)},
        {"environment", {}, "/env", "/env"},
        {"environment set but empty", {}, "", ""},
        {"argument before environment", {"--docroot=/a"}, "/env", "/a"},
        {"nothing", {}, {}, "."},
    };
    for (const auto& row : rows) EXPECT_EQ(find(row.arguments, row.environment), row.root) << row.what;
}

} // namespace
