#pragma once

#include <Wt/WGlobal.h>
#include <Wt/WString.h>

namespace Wt {

/// A colour: red, green, blue and alpha in 0..255, a CSS name, or the default of the place.
class WColor {
public:
    WColor() = default;
    WColor(int red, int green, int blue, int alpha = 255);
    WColor(const WString& name);
    WColor(StandardColor color);

    bool isDefault() const { return mDefault; }
    int red() const { return mRed; }
    int green() const { return mGreen; }
    int blue() const { return mBlue; }
    int alpha() const { return mAlpha; }
    const WString& name() const { return mName; }
    const std::string cssText(bool withAlpha = false) const;

    bool operator==(const WColor& other) const;
    bool operator!=(const WColor& other) const { return !(*this == other); }

private:
    bool mDefault = true;
    unsigned char mRed = 0, mGreen = 0, mBlue = 0, mAlpha = 255;
    WString mName;
};

} // namespace Wt
