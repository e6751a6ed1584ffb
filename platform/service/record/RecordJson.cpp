#include "platform/service/record/RecordJson.h"

#include <charconv>
#include <sodium.h>

namespace zeqd {

namespace {

bool hidden(const KeyRow& row, Audience audience) {
    if (row.access == Access::Act) return true;
    return audience == Audience::Client && row.access == Access::Internal;
}

bool servicesOwn(const KeyRow& row) {
    return row.access == Access::Read || row.access == Access::Internal;
}

void appendBinary(std::string& out, const std::string& bytes) {
    std::string text(sodium_base64_encoded_len(bytes.size(), sodium_base64_VARIANT_ORIGINAL), '\0');
    sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()),
                      bytes.size(), sodium_base64_VARIANT_ORIGINAL);
    text.pop_back(); // the terminator
    out += "{\"$binary\":\"";
    out += text;
    out += "\"}";
}

std::string_view shown(const KeyRow& row, const std::string& text, Audience audience) {
    if (audience == Audience::Disk || row.secret == Secret::No) return text;
    return row.secret == Secret::Masked && !text.empty() ? kMask : std::string_view{};
}

} // namespace

void appendJsonString(std::string& out, std::string_view text) {
    static constexpr char kHex[] = "0123456789abcdef";
    out += '"';
    std::size_t plain = 0; // what need not be escaped goes over in one piece
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (static_cast<unsigned char>(c) >= 0x20 && c != '"' && c != '\\') continue;
        out += text.substr(plain, i - plain);
        plain = i + 1;
        if (c == '"' || c == '\\')
            out += {'\\', c};
        else if (c == '\n')
            out += "\\n";
        else
            out += {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 15]};
    }
    out += text.substr(plain);
    out += '"';
}

void appendJsonNumber(std::string& out, std::int64_t number) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, number);
    out.append(digits, end.ptr);
}

void appendValue(std::string& out, const KeyRow& row, const Value& value, Audience audience) {
    switch (row.type) {
    case Type::Text:
        appendJsonString(out, shown(row, value.text(), audience));
        break;
    case Type::Binary:
        appendBinary(out, value.text());
        break;
    case Type::Number:
        appendJsonNumber(out, value.number());
        break;
    case Type::Choice:
        appendJsonString(out, row.values->values[static_cast<std::size_t>(value.number())]);
        break;
    case Type::Object:
        out += '{';
        appendFields(out, row.rows(), value.fields(), audience, true);
        out += '}';
        break;
    case Type::List: {
        out += '[';
        bool first = true;
        for (const Fields& entry : value.entries()) {
            if (!first) out += ',';
            first = false;
            out += '{';
            appendFields(out, row.rows(), entry, audience, true);
            out += '}';
        }
        out += ']';
        break;
    }
    }
}

bool appendFields(std::string& out, std::span<const KeyRow> rows, const Fields& fields, Audience audience,
                  bool first) {
    bool any = false;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const KeyRow& row = rows[i];
        if (!fields[i].isSet() || hidden(row, audience)) continue;
        if (audience == Audience::Disk && servicesOwn(row) && sameValue(fields[i], defaultValue(row)))
            continue;
        if (!first || any) out += ',';
        any = true;
        appendJsonString(out, row.key);
        out += ':';
        appendValue(out, row, fields[i], audience);
    }
    return any;
}

std::string diskText(const Record& record) {
    std::string out = "{";
    appendFields(out, record.rows(), record.fields(), Audience::Disk, true);
    out += '}';
    return out;
}

std::string errorText(std::int64_t id, const Errors& errors) {
    std::string out = "{\"id\":";
    appendJsonNumber(out, id);
    out += ",\"errors\":[";
    bool first = true;
    for (const Error& error : errors) {
        if (!first) out += ',';
        first = false;
        out += "{\"errno\":";
        appendJsonNumber(out, static_cast<int>(error.number));
        if (!error.detail.empty()) {
            out += ",\"detail\":";
            appendJsonString(out, error.detail);
        }
        out += '}';
    }
    out += "]}";
    return out;
}

} // namespace zeqd
