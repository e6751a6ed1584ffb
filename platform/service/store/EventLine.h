// One event as the event log has it.
#pragma once

#include <cstdint>
#include <string>

namespace zeqd {

struct EventLine {
    std::string severity; ///< "error", "warning" or "info"
    std::string origin;   ///< EID of the device
    std::string message;  ///< UTF-8
    std::int64_t date;    ///< seconds since 1970 UTC
};

} // namespace zeqd
