// Frame decoder: the first byte says how the rest is cut into reads.
#include "platform/client/Frame.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    constexpr size_t kLimit = 4096;
    const size_t piece = data[0] + 1u;
    zeq::FrameDecoder decoder(kLimit);
    size_t payloads = 0;
    for (size_t at = 1; at < size && decoder.state() != zeq::FrameDecoder::State::Broken;) {
        const auto space = decoder.space();
        const size_t count = std::min({piece, size - at, space.size()});
        if (count == 0) __builtin_trap(); // space() is never empty
        std::memcpy(space.data(), data + at, count);
        decoder.filled(count);
        at += count;
        while (decoder.state() == zeq::FrameDecoder::State::Complete) {
            const auto payload = decoder.payload();
            if (payload.empty() || payload.size() > kLimit) __builtin_trap();
            payloads += payload.size() + zeq::kFrameHeaderBytes;
            zeq::jsonDepthWithin(payload, zeq::kJsonMaxDepth);
            decoder.pop();
        }
        if (payloads + decoder.size() != at - 1) __builtin_trap(); // no byte is lost or doubled
    }
    return 0;
}
