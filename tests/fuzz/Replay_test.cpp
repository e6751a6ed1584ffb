// Runs the seeds of every fuzz target, whole, cut short and with single bytes changed, without a fuzzer.
#include "tests/fuzz/Replay.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kVariantsPerSeed = 60;

class Replay : public testing::TestWithParam<FuzzTarget> {
protected:
    /// The input is copied to a block of exactly its size, so that reading beyond it is seen
    /// by the sanitizer.
    static void run(const std::string& input) {
        const std::vector<unsigned char> bytes(input.begin(), input.end());
        GetParam().run(bytes.data(), bytes.size());
    }
};

TEST_P(Replay, SeedsAndTheirNeighbours) {
    run("");
    std::size_t seeds = 0;
    for (const auto& entry :
         fs::directory_iterator(fs::path(MIRL_SOURCE_DIR) / "tests/fuzz/seeds" / GetParam().name)) {
        SCOPED_TRACE(entry.path().string());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string seed(std::istreambuf_iterator<char>(file), {});
        run(seed);
        const std::size_t step = seed.size() / kVariantsPerSeed + 1;
        for (std::size_t at = 0; at < seed.size(); at += step) {
            run(seed.substr(0, at));
            for (const int flip : {0x01, 0x80, 0xFF}) {
                std::string changed = seed;
                changed[at] = static_cast<char>(changed[at] ^ flip);
                run(changed);
            }
        }
        ++seeds;
    }
    EXPECT_GT(seeds, 0u) << "a fuzz target without seeds in tests/fuzz/seeds/" << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(Fuzz, Replay, testing::ValuesIn(fuzzTargets()),
                         [](const testing::TestParamInfo<FuzzTarget>& target) { return target.param.name; });

} // namespace
