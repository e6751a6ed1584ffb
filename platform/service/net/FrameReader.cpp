#include "platform/service/net/FrameReader.h"

namespace zeqd {

std::optional<std::uint32_t> FrameReader::lengthAt(std::size_t at) const {
    if (mBuffer.size() < at + kFrameHeader) return std::nullopt;
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < kFrameHeader; ++i)
        length = length << 8 | static_cast<unsigned char>(mBuffer[at + i]);
    return length;
}

bool FrameReader::ready() const {
    const std::optional<std::uint32_t> length = lengthAt(mTaken);
    return length && (*length > kMaxRequest || mBuffer.size() >= mTaken + kFrameHeader + *length);
}

std::optional<std::string_view> FrameReader::next() {
    mBuffer.erase(0, mTaken);
    mTaken = 0;
    // One large request is no reason to hold its room for as long as the client stays.
    if (mBuffer.capacity() > 2 * kReadChunk && mBuffer.size() < kReadChunk) mBuffer.shrink_to_fit();
    const std::optional<std::uint32_t> length = lengthAt(0);
    if (mBroken || !length) return std::nullopt;
    if (*length > kMaxRequest) {
        mBroken = true;
        mBuffer = {};
        return std::nullopt;
    }
    if (mBuffer.size() < kFrameHeader + *length) return std::nullopt;
    mTaken = kFrameHeader + *length;
    return std::string_view(mBuffer).substr(kFrameHeader, *length);
}

void appendFrame(std::string& out, std::string_view text) {
    const auto length = static_cast<std::uint32_t>(text.size());
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(length >> shift & 0xFF);
    out += text;
}

} // namespace zeqd
