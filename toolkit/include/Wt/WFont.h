#pragma once

#include <Wt/WLength.h>
#include <Wt/WString.h>

namespace Wt {

/// A font, as far as CSS tells one.
class WFont {
public:
    enum GenericFamily { Default, Serif, SansSerif, Cursive, Fantasy, Monospace };
    enum Style { NormalStyle, Italic, Oblique };
    enum Weight { NormalWeight, Bold, Bolder, Lighter, Value };
    enum Size { XXSmall, XSmall, Small, Medium, Large, XLarge, XXLarge, Smaller, Larger, FixedSize };

    WFont() = default;
    WFont(GenericFamily family) : mFamily(family) {}

    void setFamily(GenericFamily family, const WString& specific = WString());
    void setStyle(Style style) { mStyle = style; }
    void setWeight(Weight weight, int value = 400);
    void setSize(Size size);
    void setSize(const WLength& size);

    GenericFamily genericFamily() const { return mFamily; }
    Style style() const { return mStyle; }
    Weight weight() const { return mWeight; }
    Size size() const { return mSize; }

    /// Values of the CSS properties; empty where the default holds.
    std::string cssFamily() const;
    std::string cssStyle() const;
    std::string cssWeight() const;
    std::string cssSize() const;

    bool operator==(const WFont& other) const;

private:
    GenericFamily mFamily = Default;
    Style mStyle = NormalStyle;
    Weight mWeight = NormalWeight;
    int mWeightValue = 400;
    Size mSize = Medium;
    WLength mFixedSize;
    WString mSpecific;
};

} // namespace Wt
