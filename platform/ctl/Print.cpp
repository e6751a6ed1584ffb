#include "platform/ctl/Print.h"

#include "platform/client/Message.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace zeqctl {

namespace {

constexpr const char* kStars = "********";

std::string dump(const json_t* value, std::size_t flags) {
    char* text = json_dumps(value, flags | JSON_ENCODE_ANY);
    std::string out(text ? text : "");
    std::free(text);
    return out;
}

/// Copy of the tree with stars in place of every secret that is not empty.
json_t* masked(const json_t* value) {
    json_t* copy = json_deep_copy(value);
    if (json_is_object(copy)) {
        const char* key;
        json_t* member;
        void* next;
        json_object_foreach_safe(copy, next, key, member) {
            const bool empty = json_is_string(member) && json_string_length(member) == 0;
            json_object_set_new(copy, key, isSecret(key) && !empty ? json_string(kStars) : masked(member));
        }
    }
    for (std::size_t i = 0; i < json_array_size(copy); ++i) {
        json_array_set_new(copy, i, masked(json_array_get(copy, i)));
    }
    return copy;
}

std::string escaped(const std::string& text, bool lines) {
    constexpr char kHex[] = "0123456789ABCDEF";
    std::string out;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n' && !lines) {
            out += "\\n";
        } else if ((byte < 0x20 && c != '\n') || byte == 0x7F) {
            out += {'\\', 'x', kHex[byte >> 4], kHex[byte & 15]};
        } else {
            out += c;
        }
    }
    return out;
}

/// Newlines stay only if `lines`.
std::string text(const json_t* value, const std::string& key, bool lines) {
    if (!value) return "";
    if (!json_is_string(value)) {
        const zeq::JsonPtr shown(masked(value));
        return isSecret(key) ? kStars : escaped(dump(shown.get(), JSON_COMPACT), false);
    }
    const std::string bytes(json_string_value(value), json_string_length(value));
    return isSecret(key) && !bytes.empty() ? kStars : escaped(bytes, lines);
}

/// Columns on the terminal: characters, of which UTF-8 has one for each byte that does not continue another.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

void collectLines(const json_t* record, const std::string& prefix,
                  std::vector<std::vector<std::string>>& lines) {
    const char* key;
    json_t* value;
    json_object_foreach(const_cast<json_t*>(record), key, value) {
        if (json_is_object(value) && !json_object_get(value, "$binary")) {
            collectLines(value, prefix + key + "/", lines);
        } else {
            lines.push_back({prefix + key, valueText(value, key)});
        }
    }
}

void printRows(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], width(row[i]));
    }
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            line += row[i] + std::string(widths[i] - width(row[i]) + 2, ' ');
        }
        out << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
    }
}

} // namespace

bool isSecret(const std::string& key) {
    constexpr std::string_view kEnd = "password";
    // "allowBlankPassword" is a switch, not a password.
    return key.size() >= kEnd.size() && !key.starts_with("allow") &&
           std::equal(kEnd.begin(), kEnd.end(), key.end() - kEnd.size(),
                      [](char a, char b) { return a == std::tolower(static_cast<unsigned char>(b)); });
}

const json_t* valueAt(const json_t* record, const std::string& path) {
    const std::size_t slash = path.find('/');
    const json_t* value = json_object_get(record, path.substr(0, slash).c_str());
    return slash == path.npos ? value : valueAt(value, path.substr(slash + 1));
}

std::string valueText(const json_t* value, const std::string& key) {
    const bool time = key == "date" || key.ends_with("Time");
    if (time && json_is_integer(value) && json_integer_value(value) > 0)
        return timeText(static_cast<std::time_t>(json_integer_value(value)));
    return text(value, key, false);
}

std::string bareText(const json_t* value, const std::string& key) {
    return text(value, key, true);
}

std::string timeText(std::time_t seconds) {
    tm local{};
    ::localtime_r(&seconds, &local);
    char text[32];
    const std::size_t length = std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &local);
    return std::string(text, length);
}

void printTable(std::ostream& out, const std::vector<std::string>& headings,
                const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::vector<std::string>> all{headings};
    all.insert(all.end(), rows.begin(), rows.end());
    printRows(out, all);
}

void printRecord(std::ostream& out, const json_t* record) {
    std::vector<std::vector<std::string>> lines;
    collectLines(record, "", lines);
    printRows(out, lines);
}

void printJson(std::ostream& out, const json_t* value, bool compact) {
    const zeq::JsonPtr shown(masked(value));
    out << dump(shown.get(), compact ? JSON_COMPACT : JSON_INDENT(2)) << '\n';
}

} // namespace zeqctl
