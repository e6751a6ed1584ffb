// Cookie headers: a value that is found stands there as the one pair of that name,
// alone and in a whole request.
#include "core/Secret.h"
#include "server/HttpRequest.h"
#include "server/RequestParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace Wt::Impl;

namespace {

constexpr std::string_view kName = "__Host-session";

/// How often `name`, blanks around it aside, stands in front of a '=' of the header.
int pairsNamed(std::string_view header, std::string_view name) {
    int count = 0;
    std::string bare;
    bool inValue = false;
    for (const char c : header) {
        if (c == ';') {
            bare.clear();
            inValue = false;
        } else if (c == '=' && !inValue) {
            while (!bare.empty() && (bare.back() == ' ' || bare.back() == '\t')) bare.pop_back();
            count += bare == name;
            inValue = true;
        } else if (!inValue && !(bare.empty() && (c == ' ' || c == '\t'))) {
            bare += c;
        }
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view header(reinterpret_cast<const char*>(data), size);
    const std::string_view value = findCookie(header, kName);
    if (!value.empty()) {
        if (pairsNamed(header, kName) != 1 || value.find(';') != value.npos) __builtin_trap();
        if (value.data() < header.data() || value.data() + value.size() > header.data() + size)
            __builtin_trap(); // a view of the header, not of something that is gone
        if (looksLikeSecret(value) && !sameDigest(digestOf(value), digestOf(std::string(value))))
            __builtin_trap();
    }
    RequestParser parser;
    const std::string request = "GET / HTTP/1.1\r\nHost: a\r\nCookie: " + std::string(header) + "\r\n\r\n";
    parser.putHead(request);
    if (parser.status() == 0 && parser.headDone()) parser.request().cookie(kName);
    return 0;
}
