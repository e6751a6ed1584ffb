#include "platform/service/record/Record.h"

#include "platform/service/catalogue/Catalogue.h"

#include <charconv>
#include <map>
#include <stdexcept>

namespace zeqd {

namespace {

/// A list merged by a key starts with one entry for each value of that key but the first, which is "none".
EntriesPtr defaultEntries(const KeyRow& row) {
    auto entries = std::make_shared<Entries>();
    if (!row.mergeBy.empty()) {
        const auto by = static_cast<std::size_t>(findKey(row.rows(), row.mergeBy));
        for (std::size_t i = 1; i < row.rows()[by].values->values.size(); ++i) {
            entries->push_back(*defaultFields(row.rows()));
            entries->back()[by] = static_cast<std::int64_t>(i);
        }
    }
    return entries;
}

std::size_t place(Res id, std::string_view key) {
    const int found = findKey(resource(id).keys, key);
    if (found < 0)
        throw std::logic_error("no key " + std::string(key) + " in " + std::string(resource(id).name));
    return static_cast<std::size_t>(found);
}

} // namespace

Value defaultValue(const KeyRow& row) {
    if (row.optional || row.access == Access::Act) return {};
    switch (row.type) {
    case Type::Text:
        return std::string(row.fallback);
    case Type::Binary:
        return std::string(row.low, '\0');
    case Type::Choice:
        return static_cast<std::int64_t>(row.fallback.empty() ? 0 : findValue(*row.values, row.fallback));
    case Type::Number: {
        std::int64_t value = row.low;
        std::from_chars(row.fallback.data(), row.fallback.data() + row.fallback.size(), value);
        return value;
    }
    case Type::Object:
        return defaultFields(row.rows());
    case Type::List:
        return defaultEntries(row);
    }
    return {};
}

const FieldsPtr& defaultFields(std::span<const KeyRow> rows) {
    // Key tables are constant, so that their address names them. Settings files are read beside the event loop.
    thread_local std::map<const KeyRow*, FieldsPtr> made;
    FieldsPtr& fields = made[rows.data()];
    if (!fields) {
        auto fresh = std::make_shared<Fields>();
        for (const KeyRow& row : rows) fresh->push_back(defaultValue(row));
        fields = std::move(fresh);
    }
    return fields;
}

Record::Record(Res id, std::uint32_t index)
    : mId(id), mIndex(index), mFields(*defaultFields(resource(id).keys)) {}

std::span<const KeyRow> Record::rows() const {
    return resource(mId).keys;
}

const Value& Record::at(std::string_view key) const {
    return mFields[place(mId, key)];
}
Value& Record::at(std::string_view key) {
    return mFields[place(mId, key)];
}

std::uint32_t Record::number(std::string_view key) const {
    return static_cast<std::uint32_t>(at(key).number());
}
const std::string& Record::text(std::string_view key) const {
    return at(key).text();
}

std::string_view Record::choice(std::string_view key) const {
    const std::size_t at = place(mId, key);
    return rows()[at].values->values[static_cast<std::size_t>(mFields[at].number())];
}

Record& Record::set(std::string_view key, std::uint32_t value) {
    at(key) = static_cast<std::int64_t>(value);
    return *this;
}

Record& Record::setText(std::string_view key, std::string value) {
    at(key) = std::move(value);
    return *this;
}

Record& Record::choose(std::string_view key, std::string_view value) {
    const std::size_t at = place(mId, key);
    const int found = findValue(*rows()[at].values, value);
    if (found < 0) throw std::logic_error("no value " + std::string(value) + " of " + std::string(key));
    mFields[at] = static_cast<std::int64_t>(found);
    return *this;
}

} // namespace zeqd
