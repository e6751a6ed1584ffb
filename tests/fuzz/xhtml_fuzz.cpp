// Texts with markup: whatever comes in, nothing comes out that could run code or leave the page by a scheme
// of its own. Checked by a list of what must never appear, not by the filter's own list of what may.
#include "text/XhtmlFilter.h"

#include <boost/json/parse.hpp>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

using namespace Wt::Impl;
namespace json = boost::json;

constexpr std::string_view kNever[] = {"script", "style", "iframe", "frame", "object", "embed",  "applet",
                                       "link",   "meta",  "base",   "form",  "input",  "button", "svg",
                                       "math",   "html",  "head",   "body",  "video",  "audio",  "template"};

/// The scheme as a browser reads it (WHATWG URL: blanks and controls around it, tabs and line ends inside of
/// it do not count), in lower case; empty for a relative URL.
std::string schemeOf(std::string_view url) {
    while (!url.empty() && static_cast<unsigned char>(url.front()) <= 0x20) url.remove_prefix(1);
    std::string scheme;
    for (const char c : url) {
        if (c == '\t' || c == '\n' || c == '\r') continue;
        if (c == ':') return scheme;
        const bool later = !scheme.empty() &&
                           (std::isdigit(static_cast<unsigned char>(c)) || c == '+' || c == '-' || c == '.');
        if (!std::isalpha(static_cast<unsigned char>(c)) && !later) break;
        scheme += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return {};
}

void checkAttribute(std::string_view name, std::string_view value) {
    if (name.substr(0, 2) == "on" || name == "style" || name == "id" || name == "srcdoc") __builtin_trap();
    if (name != "href" && name != "src") return;
    const std::string scheme = schemeOf(value);
    if (!scheme.empty() && scheme != "http" && scheme != "https" && scheme != "mailto") __builtin_trap();
}

void checkNodes(const json::array& nodes, std::size_t from, unsigned depth) {
    if (depth > kMaxXhtmlDepth) __builtin_trap();
    for (std::size_t i = from; i < nodes.size(); ++i) {
        if (nodes[i].is_string()) continue;
        const json::array& element = nodes[i].as_array();
        const json::string& tag = element.at(0).as_string();
        if (std::find(std::begin(kNever), std::end(kNever), std::string_view(tag)) != std::end(kNever))
            __builtin_trap();
        for (const auto& [name, value] : element.at(1).as_object()) checkAttribute(name, value.as_string());
        checkNodes(element, 2, depth + 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto filtered = filterXhtml(text)) {
        json::parse_options options;
        options.max_depth = 2 * kMaxXhtmlDepth + 4;
        checkNodes(json::parse(*filtered, {}, options).as_array(), 0, 0);
    }
    xhtmlToPlain(text);
    checkAttribute("href", isHarmlessUrl(text) ? text : std::string_view());
    return 0;
}
