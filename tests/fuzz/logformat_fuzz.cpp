// Log formatter: any format with a list of arguments of all kinds.
#include "platform/client/EventLogLine.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const EventLogArg args[] = {
        EventLogArg(-7),          EventLogArg("text\n"),  EventLogArg(3u),
        EventLogArg(1e300),       EventLogArg(text),      EventLogArg(static_cast<const void*>(data)),
        EventLogArg(uint64_t{1}), EventLogArg(short{-1}), EventLogArg(static_cast<const char*>(nullptr))};
    for (size_t count = 0; count <= std::size(args); ++count) {
        const std::string message = eventlog::format(text, {args, count});
        const std::string line = eventlog::escape(message);
        if (message.size() > kEventLogMessageMax || line.size() > kEventLogMessageMax) __builtin_trap();
        for (const char c : line) {
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) __builtin_trap();
        }
    }
    return 0;
}
