// Values of keys as they are held in memory. What a value means stands in its KeyRow.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace zeqd {

struct Value;

/// One value per row of a key table, in its order.
using Fields = std::vector<Value>;
using FieldsPtr = std::shared_ptr<const Fields>;
using Entries = std::vector<Fields>;
using EntriesPtr = std::shared_ptr<const Entries>;

/// Number: the number. Choice: place in its list. Text and Binary: the bytes. Object, List: shared, never
/// changed in place. Nothing: not known, or an action key.
struct Value : std::variant<std::monostate, std::int64_t, std::string, FieldsPtr, EntriesPtr> {
    using Base = std::variant<std::monostate, std::int64_t, std::string, FieldsPtr, EntriesPtr>;
    using Base::Base;
    using Base::operator=;

    bool isSet() const { return index() != 0; }
    std::int64_t number() const { return std::get<std::int64_t>(*this); }
    const std::string& text() const { return std::get<std::string>(*this); }
    const Fields& fields() const { return *std::get<FieldsPtr>(*this); }
    const Entries& entries() const { return *std::get<EntriesPtr>(*this); }
};

/// By content, all the way down.
bool sameValue(const Value& a, const Value& b);
bool sameFields(const Fields& a, const Fields& b);

} // namespace zeqd
