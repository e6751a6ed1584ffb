#include <Wt/WLength.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

namespace Wt {

namespace {
struct UnitRow {
    WLength::Unit unit;
    const char* css;
    double pixels; // of one unit at 96 dpi; of em, ex and % for a font size of 1
};
constexpr UnitRow kUnits[] = {
    {WLength::FontEm, "em", 1},
    {WLength::FontEx, "ex", 0.5},
    {WLength::Pixel, "px", 1},
    {WLength::Inch, "in", 96},
    {WLength::Centimeter, "cm", 96 / 2.54},
    {WLength::Millimeter, "mm", 96 / 25.4},
    {WLength::Point, "pt", 96.0 / 72},
    {WLength::Pica, "pc", 16},
    {WLength::Percentage, "%", 0.01},
};

constexpr bool unitsAreInOrder() {
    for (std::size_t i = 0; i < std::size(kUnits); ++i)
        if (static_cast<std::size_t>(kUnits[i].unit) != i) return false;
    return std::size(kUnits) == static_cast<std::size_t>(WLength::Percentage) + 1;
}
static_assert(unitsAreInOrder());
} // namespace

const WLength WLength::Auto;

WLength::WLength(double value, Unit unit) : mValue(value), mUnit(unit), mAuto(false) {}
WLength::WLength(int value, Unit unit) : WLength(static_cast<double>(value), unit) {}
WLength::WLength(long value, Unit unit) : WLength(static_cast<double>(value), unit) {}
WLength::WLength(unsigned value, Unit unit) : WLength(static_cast<double>(value), unit) {}
WLength::WLength(unsigned long value, Unit unit) : WLength(static_cast<double>(value), unit) {}

WLength::WLength(const std::string& css) : WLength(css.c_str()) {}

WLength::WLength(const char* css) {
    char* end = nullptr;
    const double value = std::strtod(css, &end);
    if (end == css || !std::isfinite(value)) return;
    const std::string unit(end);
    for (const UnitRow& row : kUnits)
        if (unit == row.css || (unit.empty() && row.unit == Pixel)) {
            *this = WLength(value, row.unit);
            return;
        }
}

const std::string WLength::cssText() const {
    if (mAuto || !std::isfinite(mValue)) return "auto";
    char text[40];
    std::snprintf(text, sizeof text, "%.10g%s", mValue, kUnits[mUnit].css);
    return text;
}

double WLength::toPixels(double fontSize) const {
    if (mAuto) return 0;
    const bool ofFont = mUnit == FontEm || mUnit == FontEx || mUnit == Percentage;
    return mValue * kUnits[mUnit].pixels * (ofFont ? fontSize : 1);
}

bool WLength::operator==(const WLength& other) const {
    return mAuto == other.mAuto && (mAuto || (mValue == other.mValue && mUnit == other.mUnit));
}

} // namespace Wt
