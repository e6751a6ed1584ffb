#include "db/Convert.h"

#include <cmath>
#include <limits>

namespace {

// Just below a half: the rounding below is to the nearest whole number with ties going down by a hair.
constexpr double kAlmostHalf = 0.49999997;

// From 2^23 on a single-precision number has no fraction left to round.
constexpr float kWholeFrom = 8388608.0F;

float roundTiesDown(float value) {
    if (!(value < kWholeFrom)) return value;
    return static_cast<float>(std::trunc(static_cast<double>(value) + kAlmostHalf));
}

// A timing of zero pixels divides by zero; such a Receiver shows no timing at all.
unsigned wholeNumber(double value) {
    if (!std::isfinite(value)) return 0;
    constexpr double kMost = std::numeric_limits<unsigned>::max();
    return value >= kMost ? std::numeric_limits<unsigned>::max() : static_cast<unsigned>(value);
}

double clockInHz(unsigned pixelClock) {
    return static_cast<double>(static_cast<float>(pixelClock)) * 1000.0;
}

double single(unsigned sum) {
    return static_cast<double>(static_cast<float>(sum));
}

} // namespace

unsigned Convert_videoTimingToHorFreq(unsigned pixelClock, unsigned resolution, unsigned frontPorch,
                                      unsigned syncWidth, unsigned backPorch) {
    const auto lineRate =
        static_cast<float>(clockInHz(pixelClock) / single(resolution + frontPorch + syncWidth + backPorch));
    const float tenthsOfKHz = roundTiesDown(lineRate / 100.0F);
    return wholeNumber(static_cast<double>(tenthsOfKHz) / 10.0);
}

unsigned Convert_videoTimingToFrameRate(unsigned pixelClock, unsigned hRes, unsigned hFront, unsigned hSync,
                                        unsigned hBack, unsigned vRes, unsigned vFront, unsigned vSync,
                                        unsigned vBack) {
    const auto rate = static_cast<float>(clockInHz(pixelClock) / single(hRes + hFront + hSync + hBack) /
                                         single(vRes + vFront + vSync + vBack));
    return wholeNumber(static_cast<double>(roundTiesDown(rate)));
}
