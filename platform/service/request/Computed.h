// Records that are made when they are read.
#pragma once

#include "platform/service/store/View.h"

namespace zeqd {

/// The record of a computed resource, or null when there is none of that index.
/// `now`: seconds since 1970 UTC.
RecordPtr computedRecord(const View& view, Res id, std::uint32_t index);

/// Highest index of a computed resource that is worth asking for.
std::uint32_t computedIndexes(const View& view, Res id);

/// A copy with the keys that change by themselves, such as a clock, brought up to date;
/// null when the record has none.
RecordPtr upToDate(const RecordPtr& record, std::int64_t now);

} // namespace zeqd
