// Looking at the records: of the store as it is on disk, or of a transaction that has not been kept yet.
#pragma once

#include "platform/service/record/Record.h"

#include <functional>

namespace zeqd {

class View {
public:
    virtual ~View() = default;

    /// Null when there is none.
    virtual RecordPtr find(Res id, std::uint32_t index) const = 0;

    /// In the order of the indexes, until the function answers false.
    void each(Res id, const std::function<bool(const RecordPtr&)>& visit) const { eachFrom(id, 0, visit); }
    /// Those whose index is at least `from`.
    virtual void eachFrom(Res id, std::uint32_t from,
                          const std::function<bool(const RecordPtr&)>& visit) const = 0;

    /// An index that no record of the resource has ever had.
    virtual std::uint32_t nextIndex(Res id) const = 0;

    virtual std::size_t count(Res id) const = 0;

    /// The one record of a singleton.
    const Record& singleton(Res id) const { return *find(id, 0); }

    /// First record for which the test holds, or null.
    RecordPtr findIf(Res id, const std::function<bool(const Record&)>& test) const;
    RecordPtr findNumber(Res id, std::string_view key, std::uint32_t value) const;
    RecordPtr findText(Res id, std::string_view key, std::string_view value) const;
};

} // namespace zeqd
