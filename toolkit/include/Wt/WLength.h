#pragma once

#include <string>

namespace Wt {

/// A CSS length. The default is "auto".
class WLength {
public:
    enum Unit { FontEm, FontEx, Pixel, Inch, Centimeter, Millimeter, Point, Pica, Percentage };

    static const WLength Auto;

    WLength() = default;
    /// Parses a CSS length such as "4px" or "auto"; anything else is "auto".
    explicit WLength(const std::string& css);
    explicit WLength(const char* css);
    WLength(double value, Unit unit = Pixel);
    WLength(int value, Unit unit = Pixel);
    WLength(long value, Unit unit = Pixel);
    WLength(unsigned value, Unit unit = Pixel);
    WLength(unsigned long value, Unit unit = Pixel);

    bool isAuto() const { return mAuto; }
    double value() const { return mValue; }
    Unit unit() const { return mUnit; }
    const std::string cssText() const;
    /// A percentage is of `fontSize`, in pixels, like em and ex.
    double toPixels(double fontSize = 16.0) const;

    bool operator==(const WLength& other) const;
    bool operator!=(const WLength& other) const { return !(*this == other); }

private:
    double mValue = -1;
    Unit mUnit = Pixel;
    bool mAuto = true;
};

inline WLength operator*(const WLength& l, double s) {
    return {l.value() * s, l.unit()};
}
inline WLength operator*(double s, const WLength& l) {
    return l * s;
}
inline WLength operator/(const WLength& l, double s) {
    return l * (1 / s);
}

} // namespace Wt
