#include "platform/service/demo/EdidBlock.h"

#include <algorithm>
#include <numeric>

namespace zeqd {

namespace {

constexpr std::string_view kHeader{"\x00\xFF\xFF\xFF\xFF\xFF\xFF\x00", 8};

bool rightSum(std::string_view block) {
    const unsigned sum = std::accumulate(block.begin(), block.end(), 0U, [](unsigned total, char c) {
        return total + static_cast<unsigned char>(c);
    });
    return sum % 256 == 0;
}

} // namespace

bool isSoundEdid(std::string_view data) {
    if (data.size() != kEdidBlock && data.size() != kEdidRecord) return false;
    // All bytes of a block add up to 0 modulo 256, which a block of zeros does too.
    return data.starts_with(kHeader) && rightSum(data.substr(0, kEdidBlock)) &&
           rightSum(data.substr(kEdidBlock));
}

} // namespace zeqd
