// Answers to reads.
#pragma once

#include "platform/service/request/ZeqRequest.h"
#include "platform/service/store/View.h"

namespace zeqd {

constexpr std::size_t kMaxAnswer = 64U << 20; ///< bytes of an answer's JSON

/// The whole answer as JSON text. `now`: seconds since 1970 UTC.
std::string answerRead(const View& view, const ZeqRequest& request, std::int64_t now);

} // namespace zeqd
