#include "platform/client/Frame.h"

#include <algorithm>

namespace zeq {

namespace {

constexpr std::size_t kReadBytes = 16 * 1024;
/// An idle connection keeps no more than this after a large answer.
constexpr std::size_t kKeptBytes = 256 * 1024;

} // namespace

std::array<char, kFrameHeaderBytes> frameHeader(std::size_t payloadBytes) {
    std::array<char, kFrameHeaderBytes> header;
    for (std::size_t i = 0; i < kFrameHeaderBytes; ++i) {
        header[i] = static_cast<char>(payloadBytes >> (8 * (kFrameHeaderBytes - 1 - i)));
    }
    return header;
}

bool jsonDepthWithin(std::string_view text, int levels) {
    int depth = 0;
    bool inText = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (inText) {
            if (c == '\\') ++at;
            if (c == '"') inText = false;
        } else if (c == '"') {
            inText = true;
        } else if (c == '{' || c == '[') {
            if (++depth > levels) return false;
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return true;
}

std::span<char> FrameDecoder::space() {
    std::size_t free = mBuffer.size() - mUsed;
    if (free < kReadBytes) {
        // Twice of what has come, but not beyond the frame that is under way.
        std::size_t wanted = std::max(kReadBytes, mUsed);
        if (mUsed >= kFrameHeaderBytes && state() == State::Incomplete) {
            wanted = std::min(wanted, std::max(kReadBytes, kFrameHeaderBytes + announced() - mUsed));
        }
        mBuffer.resize(mUsed + wanted);
        free = wanted;
    }
    return {mBuffer.data() + mUsed, free};
}

std::size_t FrameDecoder::announced() const {
    std::size_t length = 0;
    for (std::size_t i = 0; i < kFrameHeaderBytes; ++i) {
        length = length << 8 | static_cast<unsigned char>(mBuffer[i]);
    }
    return length;
}

FrameDecoder::State FrameDecoder::state() const {
    if (mUsed < kFrameHeaderBytes) return State::Incomplete;
    const std::size_t length = announced();
    if (length == 0 || length > mPayloadMax) return State::Broken;
    return mUsed - kFrameHeaderBytes < length ? State::Incomplete : State::Complete;
}

std::string_view FrameDecoder::payload() const {
    return std::string_view(mBuffer).substr(kFrameHeaderBytes, announced());
}

void FrameDecoder::pop() {
    const std::size_t whole = kFrameHeaderBytes + announced();
    std::copy(mBuffer.begin() + static_cast<std::ptrdiff_t>(whole),
              mBuffer.begin() + static_cast<std::ptrdiff_t>(mUsed), mBuffer.begin());
    mUsed -= whole;
    if (mBuffer.size() > kKeptBytes && mUsed < kReadBytes) {
        mBuffer.resize(mUsed);
        mBuffer.shrink_to_fit();
    }
}

} // namespace zeq
