#include "text/XhtmlFilter.h"

#include "web/JsonText.h"

#include <pugixml.hpp>

#include <algorithm>
#include <array>

namespace Wt::Impl {

namespace {

constexpr std::array<std::string_view, 54> kElements = {
    "a",   "abbr",  "address", "b",    "big",    "blockquote", "br",  "center", "cite",    "code", "dd",
    "del", "dfn",   "div",     "dl",   "dt",     "em",         "h1",  "h2",     "h3",      "h4",   "h5",
    "h6",  "hr",    "i",       "img",  "ins",    "kbd",        "li",  "ol",     "p",       "pre",  "q",
    "s",   "samp",  "small",   "span", "strong", "sub",        "sup", "table",  "tbody",   "td",   "tfoot",
    "th",  "thead", "tr",      "tt",   "u",      "ul",         "var", "wbr",    "caption", "bdi"};

/// Elements whose contents are no text for people.
constexpr std::array<std::string_view, 9> kDropped = {"script",   "style",    "object", "embed", "iframe",
                                                      "template", "noscript", "svg",    "math"};

constexpr std::array<std::string_view, 12> kAttributes = {
    "class", "title", "alt", "colspan", "rowspan", "lang", "dir", "width", "height", "href", "src", "target"};

constexpr struct {
    std::string_view name, text;
} kEntities[] = {{"&nbsp;", "\u00A0"},  {"&copy;", "\u00A9"},  {"&reg;", "\u00AE"},    {"&deg;", "\u00B0"},
                 {"&ndash;", "\u2013"}, {"&mdash;", "\u2014"}, {"&hellip;", "\u2026"}, {"&euro;", "\u20AC"},
                 {"&laquo;", "\u00AB"}, {"&raquo;", "\u00BB"}, {"&times;", "\u00D7"},  {"&bull;", "\u2022"}};

template <std::size_t N>
bool contains(const std::array<std::string_view, N>& list, std::string_view name) {
    return std::find(list.begin(), list.end(), name) != list.end();
}

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
    return out;
}

/// XML knows five entities; these are the others that texts use.
std::string expandEntities(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        bool known = false;
        if (text[i] == '&')
            for (const auto& [name, replacement] : kEntities)
                if (text.substr(i, name.size()) == name) {
                    out += replacement;
                    i += name.size();
                    known = true;
                    break;
                }
        if (!known) out += text[i++];
    }
    return out;
}

bool load(pugi::xml_document& document, std::string_view text) {
    if (text.size() > kMaxXhtmlBytes || text.find('\0') != std::string_view::npos) return false;
    const std::string whole = "<x>" + expandEntities(text) + "</x>";
    const auto result = document.load_buffer(
        whole.data(), whole.size(), pugi::parse_default | pugi::parse_ws_pcdata, pugi::encoding_utf8);
    // Exactly the one element, so that "</x><x>" is not taken for well-formed.
    return result && document.first_child() == document.last_child();
}

class Writer {
public:
    bool contents(const pugi::xml_node& parent, unsigned depth) {
        if (depth > kMaxXhtmlDepth) return false;
        for (const pugi::xml_node& node : parent.children()) {
            if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
                separate();
                appendJson(mOut, node.value());
            } else if (node.type() == pugi::node_element && !element(node, depth)) {
                return false;
            }
        }
        return true;
    }
    std::string take() { return "[" + std::move(mOut) + "]"; }

private:
    void separate() {
        if (!mOut.empty() && mOut.back() != '[') mOut += ',';
    }

    bool element(const pugi::xml_node& node, unsigned depth) {
        const std::string name = lower(node.name());
        if (contains(kDropped, name)) return true;
        if (!contains(kElements, name)) return contents(node, depth + 1);
        separate();
        mOut += '[';
        appendJson(mOut, name);
        mOut += ",{";
        bool first = true;
        for (const pugi::xml_attribute& attribute : node.attributes()) {
            const std::string key = lower(attribute.name());
            if (!contains(kAttributes, key)) continue;
            if ((key == "href" || key == "src") && !isHarmlessUrl(attribute.value())) continue;
            if (!first) mOut += ',';
            first = false;
            appendJson(mOut, key);
            mOut += ':';
            appendJson(mOut, attribute.value());
        }
        mOut += '}';
        if (!contents(node, depth + 1)) return false;
        mOut += ']';
        return true;
    }

    std::string mOut;
};

bool plainText(const pugi::xml_node& parent, std::string& out, unsigned depth) {
    if (depth > kMaxXhtmlDepth) return false;
    for (const pugi::xml_node& node : parent.children()) {
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            out += node.value();
        else if (node.type() == pugi::node_element && !contains(kDropped, lower(node.name()))) {
            if (lower(node.name()) == "br") out += '\n';
            if (!plainText(node, out, depth + 1)) return false;
        }
    }
    return true;
}

} // namespace

bool isPlain(std::string_view text) {
    return text.find_first_of("<&") == std::string_view::npos;
}

// Browsers ignore blanks and control characters in front and inside of a scheme.
bool isHarmlessUrl(std::string_view url) {
    std::string bare;
    for (const char c : url)
        if (static_cast<unsigned char>(c) > 0x20) bare += c;
    const std::size_t colon = bare.find(':');
    if (colon == std::string::npos || bare.find_first_of("/?#") < colon) return true;
    const std::string scheme = lower(bare.substr(0, colon));
    return scheme == "http" || scheme == "https" || scheme == "mailto";
}

std::optional<std::string> filterXhtml(std::string_view text) {
    pugi::xml_document document;
    if (!load(document, text)) return std::nullopt;
    Writer writer;
    if (!writer.contents(document.first_child(), 0)) return std::nullopt;
    return writer.take();
}

std::string xhtmlToPlain(std::string_view text) {
    if (isPlain(text)) return std::string(text);
    pugi::xml_document document;
    std::string out;
    if (!load(document, text) || !plainText(document.first_child(), out, 0)) return std::string(text);
    return out;
}

} // namespace Wt::Impl
