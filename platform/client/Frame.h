// Frames of the Zeq protocol and their limits: docs/zeq-protocol.md.
#ifndef PLATFORM_CLIENT_FRAME_H
#define PLATFORM_CLIENT_FRAME_H

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace zeq {

constexpr std::size_t kFrameHeaderBytes = 4;
constexpr std::size_t kRequestMaxBytes = 1u << 20;
constexpr std::size_t kAnswerMaxBytes = 64u << 20;
/// Levels of JSON, the outermost being level 1. Parser and destructor of a tree recurse,
/// on small thread stacks.
constexpr int kJsonMaxDepth = 32;

std::array<char, kFrameHeaderBytes> frameHeader(std::size_t payloadBytes);

/// True when brackets outside of texts nest at most `levels` deep. Says nothing else about the text's form.
bool jsonDepthWithin(std::string_view text, int levels);

/// Takes bytes as they arrive and cuts them into frames. A header alone reserves nothing: memory grows with
/// the bytes that really came.
class FrameDecoder {
public:
    enum class State {
        Incomplete, ///< more bytes are needed
        Complete,   ///< payload() is a whole frame
        Broken      ///< the length is 0 or above the limit; stays so
    };

    /// `payloadMax` in bytes.
    explicit FrameDecoder(std::size_t payloadMax) : mPayloadMax(payloadMax) {}

    /// Where the next bytes are to be read to; never empty. Valid until the next call of any operation.
    std::span<char> space();
    /// `count` bytes were read into space().
    void filled(std::size_t count) { mUsed += count; }

    State state() const;
    /// The frame without its header; only when state() is Complete. Valid until the next command.
    std::string_view payload() const;
    /// Drops the complete frame; what came behind it becomes the beginning of the next one.
    void pop();

    /// Bytes held, of frames begun and complete.
    std::size_t size() const { return mUsed; }

private:
    std::size_t announced() const;

    std::size_t mPayloadMax;
    std::string mBuffer; // the first mUsed bytes are data, the rest is space
    std::size_t mUsed = 0;
};

} // namespace zeq

#endif
