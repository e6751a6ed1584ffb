#include "shell/DocRoot.h"

#include <cctype>
#include <cstdlib>
#include <cstring>

char Main_docRoot[kDocRootSize];

namespace {

constexpr char kOption[] = "--docroot";
constexpr std::size_t kOptionLength = sizeof kOption - 1;

void copyCut(char* root, const char* value) {
    const std::size_t length = strnlen(value, kDocRootSize - 1);
    std::memcpy(root, value, length);
    root[length] = '\0';
}

/// What stands behind the option in the same argument; empty when nothing does.
const char* valueOf(const char* argument) {
    const char* value = argument + kOptionLength;
    while (*value == '=' || std::isspace(static_cast<unsigned char>(*value))) ++value;
    return value;
}

} // namespace

void DocRoot_find(int argc, const char* const* argv, char* root) {
    root[0] = '\0';
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], kOption, kOptionLength) != 0) continue;
        const char* value = valueOf(argv[i]);
        if (*value) copyCut(root, value);
    }
    if (root[0]) return;
    const char* fromEnvironment = std::getenv("WT_APP_ROOT");
    copyCut(root, fromEnvironment ? fromEnvironment : ".");
}
