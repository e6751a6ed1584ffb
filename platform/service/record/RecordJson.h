// Writing JSON text piece by piece. Reads are answered straight from the records, without a tree in between.
#pragma once

#include "platform/service/core/Errors.h"
#include "platform/service/record/Record.h"

namespace zeqd {

void appendJsonString(std::string& out, std::string_view text);
void appendJsonNumber(std::string& out, std::int64_t number);

/// What a read shows of a masked secret that is set.
inline constexpr std::string_view kMask = "********";

enum class Audience {
    Client, ///< secrets hidden, the service's own keys left out
    Disk,   ///< everything, but the service's own keys at their fallback
};

/// Appends the value; it must be set.
void appendValue(std::string& out, const KeyRow& row, const Value& value, Audience audience);

/// Appends "key":value pairs of all keys that the audience gets, with a leading comma each but the first when
/// `first`. Answers whether something has been appended.
bool appendFields(std::string& out, std::span<const KeyRow> rows, const Fields& fields, Audience audience,
                  bool first);

/// The record as one JSON object for the disk.
std::string diskText(const Record& record);

/// {"id":id,"errors":[…]}
std::string errorText(std::int64_t id, const Errors& errors);

} // namespace zeqd
