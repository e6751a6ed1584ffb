// What a page sends: what is accepted holds numbered lists of objects and nothing else.
#include "core/Limits.h"
#include "session/PageMessage.h"

#include <cstddef>
#include <cstdint>

using namespace Wt::Impl;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    if (const auto input = parsePageInput(text)) {
        for (const PageMessage& message : input->messages) {
            if (message.number == 0 || !message.events.is_array()) __builtin_trap();
            if (message.events.get_array().size() > kEventsPerMessage) __builtin_trap();
            for (const auto& event : message.events.get_array())
                if (!event.is_object()) __builtin_trap();
        }
    }
    if (const auto start = parseStartInput(text))
        if (start->width < 0 || start->width > 65535 || start->height < 0 || start->height > 65535)
            __builtin_trap();
    parseToken(text);
    return 0;
}
