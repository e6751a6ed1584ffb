#pragma once

#include "core/Limits.h"

#include <chrono>
#include <cstdint>
#include <string_view>

namespace Wt::Impl {

/// Counts the WebSocket frames (RFC 6455 5.2) in the bytes of a browser, which the library below hides: a message
/// in thousands of pieces, or pings without end, cost far more than their bytes. Knows nothing of their content.
class FrameMeter {
public:
    using Clock = std::chrono::steady_clock;

    /// The next bytes as they come, in pieces of any size. False from the first frame too many on.
    bool take(std::string_view bytes, Clock::time_point now);

private:
    bool begin(unsigned char first, Clock::time_point now);

    int mHeadBytes = 0;         ///< of the frame under way that have come
    int mHeadWanted = 2;        ///< known as far as they have come
    std::uint64_t mPayload = 0; ///< bytes announced, then those still to come
    int mSizeBytes = 0;         ///< of the head that tell a long payload
    std::size_t mFragments = 0; ///< frames of the message under way
    double mControls = kControlFrameBurst;
    Clock::time_point mControlsAt{};
    bool mFine = true;
};

} // namespace Wt::Impl
