#include "platform/service/record/Value.h"

#include <algorithm>

namespace zeqd {

bool sameFields(const Fields& a, const Fields& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), sameValue);
}

bool sameValue(const Value& a, const Value& b) {
    if (a.index() != b.index()) return false;
    if (const auto* fields = std::get_if<FieldsPtr>(&a)) {
        const FieldsPtr& other = std::get<FieldsPtr>(b);
        return *fields == other || sameFields(**fields, *other);
    }
    if (const auto* entries = std::get_if<EntriesPtr>(&a)) {
        const EntriesPtr& other = std::get<EntriesPtr>(b);
        return *entries == other ||
               ((*entries)->size() == other->size() &&
                std::equal((*entries)->begin(), (*entries)->end(), other->begin(), sameFields));
    }
    return static_cast<const Value::Base&>(a) == static_cast<const Value::Base&>(b);
}

} // namespace zeqd
