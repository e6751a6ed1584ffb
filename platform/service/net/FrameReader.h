// Frames: a 4-byte big-endian length, then so many bytes of JSON.
#pragma once

#include "platform/service/net/SocketLimits.h"

#include <optional>
#include <string>
#include <string_view>

namespace zeqd {

/// Takes bytes as they come and gives whole frames.
class FrameReader {
public:
    void append(std::string_view bytes) { mBuffer.append(bytes); }

    /// The next frame's content, when it is there. The view lasts until the next call of a member.
    std::optional<std::string_view> next();

    /// A frame announced more than a request may have; nothing more can be read.
    bool broken() const { return mBroken; }
    /// A frame has begun and is not there yet.
    bool partial() const { return mBuffer.size() > mTaken; }
    /// A frame is there behind the one given last, or bytes that show that nothing more can be read.
    bool ready() const;
    /// Bytes of memory that are held.
    std::size_t held() const { return mBuffer.capacity(); }

private:
    /// Length of the frame at the place; nothing when its head is not there yet.
    std::optional<std::uint32_t> lengthAt(std::size_t at) const;

    std::string mBuffer;
    std::size_t mTaken = 0; ///< bytes at the front that have been given away
    bool mBroken = false;
};

/// Appends the text as a frame.
void appendFrame(std::string& out, std::string_view text);

} // namespace zeqd
