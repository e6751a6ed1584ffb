// A record of a resource, addressed by its catalogue keys. Asking for a key that the catalogue lacks, or as
// another type, is a fault of the program and throws std::logic_error.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"
#include "platform/service/record/Value.h"

namespace zeqd {

/// Every key at its fallback.
const FieldsPtr& defaultFields(std::span<const KeyRow> rows);
Value defaultValue(const KeyRow& row);

class Record {
public:
    Record(Res id, std::uint32_t index);

    Res id() const { return mId; }
    std::uint32_t index() const { return mIndex; }
    std::span<const KeyRow> rows() const;

    const Fields& fields() const { return mFields; }
    Fields& fields() { return mFields; }

    const Value& at(std::string_view key) const;
    Value& at(std::string_view key);

    std::uint32_t number(std::string_view key) const;
    const std::string& text(std::string_view key) const;
    std::string_view choice(std::string_view key) const;
    bool is(std::string_view key, std::string_view value) const { return choice(key) == value; }
    bool enabled(std::string_view key) const { return choice(key) == "enabled"; }

    Record& set(std::string_view key, std::uint32_t value);
    Record& setText(std::string_view key, std::string value);
    /// The value must be one of the key's list.
    Record& choose(std::string_view key, std::string_view value);

private:
    Res mId;
    std::uint32_t mIndex;
    Fields mFields;
};

using RecordPtr = std::shared_ptr<const Record>;

} // namespace zeqd
