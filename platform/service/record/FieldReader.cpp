#include "platform/service/record/FieldReader.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/Forms.h"

#include <algorithm>
#include <sodium.h>

namespace zeqd {

namespace {

std::string acceptedValues(const ValueList& list) {
    std::string text;
    for (const std::string_view value : list.values) {
        if (!text.empty()) text += ", ";
        text += value;
    }
    return text;
}

std::string range(const KeyRow& row) {
    return std::to_string(row.low) + " to " + std::to_string(row.high);
}

} // namespace

std::string quoted(std::string_view text) {
    constexpr std::size_t kMost = 40;
    std::string out = "'";
    for (const char c : text.substr(0, kMost)) out += c >= ' ' && c <= '~' ? c : '?';
    out += text.size() > kMost ? "...'" : "'";
    return out;
}

void FieldReader::merge(const json_t* object, std::span<const KeyRow> rows, Fields& fields,
                        const std::string& path) {
    const char* key;
    json_t* value;
    json_object_foreach(const_cast<json_t*>(object), key, value) {
        const std::string_view name = key;
        if (name == "index" && path.empty()) continue;
        const int at = findKey(rows, name);
        const std::string full = path + std::string(name.substr(0, 64));
        const bool unknown = at < 0 || (rows[static_cast<std::size_t>(at)].access == Access::Internal &&
                                        mWriting != Writing::Load);
        if (unknown) {
            fail(Errno::UnknownParameter, quoted(full));
        } else if (mayWrite(rows[static_cast<std::size_t>(at)], full)) {
            read(value, rows[static_cast<std::size_t>(at)], fields[static_cast<std::size_t>(at)], full);
        }
    }
}

void FieldReader::require(const json_t* object, std::span<const KeyRow> rows) {
    for (const KeyRow& row : rows)
        if (row.required && !json_object_get(object, std::string(row.key).c_str()))
            fail(Errno::MissingParameters, std::string(row.key));
}

bool FieldReader::mayWrite(const KeyRow& row, const std::string& name) {
    if (mWriting == Writing::Load) return true;
    if (row.access == Access::Read || (row.access == Access::Create && mWriting == Writing::Set)) {
        fail(Errno::NotAllowed, name + " is read only");
        return false;
    }
    return true;
}

void FieldReader::read(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    switch (row.type) {
    case Type::Text:
        return readText(json, row, value, name);
    case Type::Number:
        return readNumber(json, row, value, name);
    case Type::Choice:
        return readChoice(json, row, value, name);
    case Type::Binary:
        return readBinary(json, row, value, name);
    case Type::List:
        return readList(json, row, value, name);
    case Type::Object: {
        if (!json_is_object(json)) return fail(Errno::InvalidParameter, name + " must be an object");
        auto fields = std::make_shared<Fields>(value.isSet() ? value.fields() : *defaultFields(row.rows()));
        merge(json, row.rows(), *fields, name + "/");
        value = FieldsPtr(std::move(fields));
        return;
    }
    }
}

void FieldReader::readText(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    if (!json_is_string(json)) return fail(Errno::InvalidParameter, name + " must be a text");
    const std::string_view text(json_string_value(json), json_string_length(json));
    const bool hash = mWriting == Writing::Load && row.secret == Secret::Hashed;
    if (!hash && text.size() > row.high)
        return fail(Errno::TooLong, name + ": at most " + std::to_string(row.high) + " characters");
    if (!hash && !hasForm(row.form, text))
        return fail(Errno::InvalidFormat, name + ": " + std::string(formText(row.form)));
    value = std::string(text);
}

void FieldReader::readNumber(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    if (!json_is_integer(json)) return fail(Errno::InvalidParameter, name + " must be a whole number");
    const json_int_t number = json_integer_value(json);
    if (number < row.low || number > row.high) return fail(Errno::OutOfRange, name + ": " + range(row));
    value = static_cast<std::int64_t>(number);
}

void FieldReader::readChoice(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    if (!json_is_string(json)) return fail(Errno::InvalidParameter, name + " must be a text");
    const std::string_view text(json_string_value(json), json_string_length(json));
    const int found = findValue(*row.values, text);
    if (found < 0)
        return fail(Errno::InvalidEnumeration,
                    name + " " + quoted(text) + " unknown; use " + acceptedValues(*row.values));
    value = static_cast<std::int64_t>(found);
}

void FieldReader::readBinary(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    const json_t* text = json_object_get(json, "$binary");
    if (!json_is_string(text)) return fail(Errno::InvalidParameter, name + " must be binary");
    std::string bytes(json_string_length(text) / 4 * 3 + 3, '\0');
    std::size_t length = 0;
    if (sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(),
                          json_string_value(text), json_string_length(text), nullptr, &length, nullptr,
                          sodium_base64_VARIANT_ORIGINAL) != 0)
        return fail(Errno::InvalidFormat, name + ": base64");
    if (length < row.low || length > row.high)
        return fail(Errno::InvalidBinaryLength, name + ": " + range(row) + " bytes");
    bytes.resize(length);
    value = std::move(bytes);
}

void FieldReader::readList(const json_t* json, const KeyRow& row, Value& value, const std::string& name) {
    if (!json_is_array(json)) return fail(Errno::InvalidParameter, name + " must be a list");
    if (json_array_size(json) > row.high)
        return fail(Errno::TooLarge, name + ": at most " + std::to_string(row.high) + " entries");
    const bool merging = !row.mergeBy.empty();
    const auto by = merging ? static_cast<std::size_t>(findKey(row.rows(), row.mergeBy)) : 0;
    Entries entries = merging && value.isSet() ? value.entries() : Entries{};
    for (std::size_t i = 0; i < json_array_size(json); ++i) {
        const json_t* item = json_array_get(json, i);
        if (!json_is_object(item)) return fail(Errno::InvalidParameter, name + " must hold objects");
        require(item, row.rows());
        Fields fresh = *defaultFields(row.rows());
        merge(item, row.rows(), fresh, name + "/");
        if (!merging) {
            entries.push_back(std::move(fresh));
            continue;
        }
        const auto same = [&](const Fields& entry) { return sameValue(entry[by], fresh[by]); };
        const auto old = std::find_if(entries.begin(), entries.end(), same);
        if (old == entries.end()) return fail(Errno::InvalidParameter, name + ": no such entry");
        merge(item, row.rows(), *old, name + "/");
    }
    value = std::make_shared<const Entries>(std::move(entries));
}

} // namespace zeqd
