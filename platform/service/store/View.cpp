#include "platform/service/store/View.h"

namespace zeqd {

RecordPtr View::findIf(Res id, const std::function<bool(const Record&)>& test) const {
    RecordPtr found;
    each(id, [&](const RecordPtr& record) {
        if (test(*record)) found = record;
        return !found;
    });
    return found;
}

RecordPtr View::findNumber(Res id, std::string_view key, std::uint32_t value) const {
    return findIf(id, [&](const Record& record) { return record.number(key) == value; });
}

RecordPtr View::findText(Res id, std::string_view key, std::string_view value) const {
    return findIf(id, [&](const Record& record) { return record.text(key) == value; });
}

} // namespace zeqd
