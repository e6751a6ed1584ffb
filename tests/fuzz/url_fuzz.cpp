// Targets, parameters and cookies: a path that is accepted lies below the root,
// however often it is read again.
#include "server/AccessLog.h"
#include "server/HttpRequest.h"
#include "server/Url.h"

#include <cstddef>
#include <cstdint>

using namespace Wt::Impl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (const auto path = normalPath(text)) {
        if (path->front() != '/' || path->find("//") != path->npos || path->find('\0') != path->npos)
            __builtin_trap();
        if ((*path + "/").find("/../") != path->npos || (*path + "/").find("/./") != path->npos)
            __builtin_trap();
        if (!isUtf8(*path)) __builtin_trap();
    }
    parseParameters(text);
    findCookie(text, "session");
    for (const char c : loggedTarget(text))
        if (static_cast<unsigned char>(c) < 0x21 || c == '"') __builtin_trap();
    return 0;
}
