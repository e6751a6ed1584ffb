#include "db/Convert.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <random>

namespace {

// The same arithmetic once more, in whole numbers only: a rational number is rounded to a given number of
// binary digits, half to even, as IEEE 754 asks, without touching a floating-point unit.

__extension__ typedef unsigned __int128 Wide;

// mantissa * 2^exponent; 0 is {0, 0}.
struct Binary {
    Wide mantissa;
    int exponent;
};

int bitsOf(Wide value) {
    const auto high = static_cast<std::uint64_t>(value >> 64);
    return high ? 64 + std::bit_width(high) : std::bit_width(static_cast<std::uint64_t>(value));
}

// top / bottom, rounded to `digits` binary digits.
Binary rounded(Wide top, Wide bottom, int exponent, int digits) {
    if (top == 0) return {0, 0};
    // Scale so that the quotient has more digits than wanted; what the division leaves is "sticky".
    const int scale = std::max(0, 120 - bitsOf(top));
    top <<= scale;
    exponent -= scale;
    const Wide quotient = top / bottom;
    const bool sticky = top % bottom != 0;
    const int cut = std::max(0, bitsOf(quotient) - digits);
    const Wide kept = quotient >> cut;
    const Wide dropped = quotient - (kept << cut);
    const Wide half = cut ? Wide(1) << (cut - 1) : 0;
    const bool up = dropped > half || (cut && dropped == half && (sticky || (kept & 1)));
    return {kept + (up ? 1 : 0), exponent + cut};
}

Binary single(Wide top, Wide bottom = 1, int exponent = 0) {
    return rounded(top, bottom, exponent, 24);
}
Binary twice(Wide top, Wide bottom = 1, int exponent = 0) {
    return rounded(top, bottom, exponent, 53);
}

// Quotient of two rounded numbers in double precision.
Binary divided(const Binary& a, const Binary& b) {
    if (a.mantissa == 0) return {0, 0};
    return twice(a.mantissa, b.mantissa, a.exponent - b.exponent);
}

Wide whole(const Binary& value) {
    return value.exponent >= 0     ? value.mantissa << value.exponent
           : value.exponent < -120 ? 0
                                   : value.mantissa >> -value.exponent;
}

// Nearest whole number; 0.49999997 as the nearest double is added, and the sum is a double too.
Wide nearest(const Binary& value) {
    if (whole(value) >= 8388608) return whole(value);
    constexpr double kAdded = 0.49999997;
    int addedExponent = 0;
    const double fraction = std::frexp(kAdded, &addedExponent);
    const auto addedMantissa = static_cast<Wide>(std::ldexp(fraction, 53));
    addedExponent -= 53;
    const int low = std::min(value.exponent, addedExponent);
    const Wide sum = (value.mantissa << (value.exponent - low)) + (addedMantissa << (addedExponent - low));
    return whole(twice(sum, 1, low));
}

unsigned result(Wide value) {
    return static_cast<unsigned>(std::min<Wide>(value, 0xFFFFFFFFU));
}

unsigned horFreq(unsigned clock, unsigned total) {
    const Binary f = single(clock);
    const Binary hertz = twice(f.mantissa * 1000, 1, f.exponent);
    const Binary rate = divided(hertz, single(total));
    const Binary a = single(rate.mantissa, 1, rate.exponent);
    const Wide tenths = nearest(single(a.mantissa, 100, a.exponent));
    const Binary t = single(tenths);
    return result(whole(twice(t.mantissa, 10, t.exponent)));
}

unsigned frameRate(unsigned clock, unsigned line, unsigned frame) {
    const Binary f = single(clock);
    const Binary hertz = twice(f.mantissa * 1000, 1, f.exponent);
    const Binary rate = divided(divided(hertz, single(line)), single(frame));
    return result(nearest(single(rate.mantissa, 1, rate.exponent)));
}

TEST(VideoTiming, KnownModes) {
    // VESA DMT and CEA-861 modes: kHz, pixels, lines.
    const struct {
        unsigned clock, h[4], v[4], horFreq, frameRate;
    } rows[] = {
        {148500, {1920, 88, 44, 148}, {1080, 4, 5, 36}, 67, 60},
        {25175, {640, 16, 96, 48}, {480, 10, 2, 33}, 31, 60},
        {40000, {800, 40, 128, 88}, {600, 1, 4, 23}, 37, 60},
        {65000, {1024, 24, 136, 160}, {768, 3, 6, 29}, 48, 60},
        {108000, {1280, 48, 112, 248}, {1024, 1, 3, 38}, 64, 60},
        {162000, {1600, 64, 192, 304}, {1200, 1, 3, 46}, 75, 60},
        {74250, {1280, 110, 40, 220}, {720, 5, 5, 20}, 45, 60},
        {0, {0, 0, 0, 0}, {0, 0, 0, 0}, 0, 0},
        {0, {1920, 88, 44, 148}, {1080, 4, 5, 36}, 0, 0},
        {148500, {0, 0, 0, 0}, {0, 0, 0, 0}, 0, 0},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(testing::Message() << r.clock << " kHz, " << r.h[0] << " x " << r.v[0]);
        EXPECT_EQ(Convert_videoTimingToHorFreq(r.clock, r.h[0], r.h[1], r.h[2], r.h[3]), r.horFreq);
        EXPECT_EQ(Convert_videoTimingToFrameRate(r.clock, r.h[0], r.h[1], r.h[2], r.h[3], r.v[0], r.v[1],
                                                 r.v[2], r.v[3]),
                  r.frameRate);
    }
}

TEST(VideoTiming, RoundsAtTheEdges) {
    // The line rate is clock / 1000 kHz here. A tenth is rounded with ties going down,
    // then the rest is cut off.
    const struct {
        unsigned clock, horFreq;
    } rows[] = {
        {67460, 67}, {67949, 67}, {67950, 67}, {67951, 68}, {67960, 68}, {68000, 68}, {949, 0}, {951, 1},
    };
    for (const auto& r : rows)
        EXPECT_EQ(Convert_videoTimingToHorFreq(r.clock, 1000, 0, 0, 0), r.horFreq) << r.clock;
    // 60.5 Hz exactly goes down.
    EXPECT_EQ(Convert_videoTimingToFrameRate(605, 100, 0, 0, 0, 100, 0, 0, 0), 60U);
    EXPECT_EQ(Convert_videoTimingToFrameRate(606, 100, 0, 0, 0, 100, 0, 0, 0), 61U);
}

TEST(VideoTiming, AgreesWithExactArithmetic) {
    std::mt19937 random(20261122);
    const auto upTo = [&](unsigned most) { return static_cast<unsigned>(random() % most + 1); };
    for (int i = 0; i < 50000; ++i) {
        // Every other clock is above 2^24, where a whole number is no single-precision number any more.
        const unsigned clock = i % 2 ? upTo(400000) : upTo(0x7FFFFFFF);
        const unsigned line = upTo(i % 3 ? 5000 : 20);
        const unsigned frame = upTo(3000);
        ASSERT_EQ(Convert_videoTimingToFrameRate(clock, line, 0, 0, 0, 0, frame, 0, 0),
                  frameRate(clock, line, frame))
            << clock << " / " << line << " / " << frame;
        ASSERT_EQ(Convert_videoTimingToHorFreq(clock, 0, line, 0, 0), horFreq(clock, line))
            << clock << " / " << line;
    }
    // Rates right at and beside the middle between two tenths.
    for (unsigned tenth = 0; tenth < 3000; ++tenth)
        for (unsigned beside : {49U, 50U, 51U}) {
            const unsigned clock = tenth * 100 + beside;
            ASSERT_EQ(Convert_videoTimingToHorFreq(clock, 1000, 0, 0, 0), horFreq(clock, 1000)) << clock;
        }
}

} // namespace
