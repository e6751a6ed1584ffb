// Records that are made when they are read.
#pragma once

#include "platform/service/store/View.h"

#include <optional>
#include <set>
#include <span>

namespace zeqd {

/// A key of a diagnostic record.
struct Reading {
    std::string_view key;
    std::uint32_t idle; ///< while no session runs
    std::uint32_t busy;
};

/// Makes the records of one request.
class ComputedRecords {
public:
    explicit ComputedRecords(const View& view) : mView(view) {}

    /// The record of a computed resource, or null when there is none of that index.
    RecordPtr record(Res id, std::uint32_t index);

private:
    /// The device carries a session. Looked up in all sessions once: there may be as many as devices.
    bool busy(Res kind, std::uint32_t index);
    std::string_view portState(const Record& device);
    void plugIn(Entries& ports, const Record& device);
    RecordPtr portStatus(std::uint32_t index);
    RecordPtr diagnostics(Res id, Res kind, std::span<const Reading> readings, std::uint32_t index);

    const View& mView;
    std::optional<std::set<std::pair<Res, std::uint32_t>>> mBusy;
};

/// Highest index of a computed resource that is worth asking for.
std::uint32_t computedIndexes(const View& view, Res id);

/// A copy with the keys that change by themselves, such as a clock, brought up to date;
/// null when the record has none.
RecordPtr upToDate(const RecordPtr& record, std::int64_t now);

} // namespace zeqd
