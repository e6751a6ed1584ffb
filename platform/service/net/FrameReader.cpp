#include "platform/service/net/FrameReader.h"

namespace zeqd {

std::optional<std::string_view> FrameReader::next() {
    mBuffer.erase(0, mTaken);
    mTaken = 0;
    if (mBroken || mBuffer.size() < kFrameHeader) return std::nullopt;
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < kFrameHeader; ++i)
        length = length << 8 | static_cast<unsigned char>(mBuffer[i]);
    if (length > kMaxRequest) {
        mBroken = true;
        mBuffer.clear();
        return std::nullopt;
    }
    if (mBuffer.size() < kFrameHeader + length) return std::nullopt;
    mTaken = kFrameHeader + length;
    return std::string_view(mBuffer).substr(kFrameHeader, length);
}

void appendFrame(std::string& out, std::string_view text) {
    const auto length = static_cast<std::uint32_t>(text.size());
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(length >> shift & 0xFF);
    out += text;
}

} // namespace zeqd
