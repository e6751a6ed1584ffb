#include "server/FrameMeter.h"

#include <algorithm>

namespace Wt::Impl {

bool FrameMeter::take(std::string_view bytes, Clock::time_point now) {
    for (std::size_t at = 0; at < bytes.size() && mFine;) {
        if (mHeadBytes == mHeadWanted && mPayload > 0) {
            const std::uint64_t skipped = std::min<std::uint64_t>(mPayload, bytes.size() - at);
            mPayload -= skipped;
            at += static_cast<std::size_t>(skipped);
        } else {
            const auto byte = static_cast<unsigned char>(bytes[at++]);
            if (mHeadBytes == 0) mFine = begin(byte, now);
            if (mHeadBytes == 1) {
                const unsigned size = byte & 127;
                const int more = size == 127 ? 8 : size == 126 ? 2 : 0;
                mHeadWanted = 2 + more + ((byte & 128) != 0 ? 4 : 0);
                mPayload = more == 0 ? size : 0;
                mSizeBytes = more;
            } else if (mHeadBytes > 1 && mHeadBytes < 2 + mSizeBytes) {
                mPayload = mPayload << 8 | byte;
            }
            ++mHeadBytes;
        }
        if (mHeadBytes == mHeadWanted && mPayload == 0) {
            mHeadBytes = 0;
            mHeadWanted = 2;
        }
    }
    return mFine;
}

bool FrameMeter::begin(unsigned char first, Clock::time_point now) {
    const bool last = (first & 128) != 0;
    const bool control = (first & 8) != 0;
    if (!control) {
        if (++mFragments > kFragments) return false;
        if (last) mFragments = 0;
        return true;
    }
    const std::chrono::duration<double> passed = now - mControlsAt;
    mControlsAt = now;
    mControls = std::min(kControlFrameBurst, mControls + passed.count() * kControlFramesPerSecond) - 1;
    return mControls >= 0;
}

} // namespace Wt::Impl
