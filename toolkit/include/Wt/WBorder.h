#pragma once

#include <Wt/WColor.h>
#include <Wt/WLength.h>

namespace Wt {

/// A border line of a widget.
class WBorder {
public:
    enum Width { Thin, Medium, Thick, Explicit };
    enum Style { None, Hidden, Dotted, Dashed, Solid, Double, Groove, Ridge, Inset, Outset };

    WBorder() = default;
    WBorder(Style style, Width width = Medium, WColor color = WColor());
    WBorder(Style style, const WLength& width, WColor color = WColor());

    void setWidth(Width width, const WLength& explicitWidth = WLength::Auto);
    void setColor(WColor color) { mColor = color; }
    void setStyle(Style style) { mStyle = style; }

    Width width() const { return mWidth; }
    WLength explicitWidth() const { return mExplicitWidth; }
    const WColor& color() const { return mColor; }
    Style style() const { return mStyle; }
    const std::string cssText() const;

    bool operator==(const WBorder& other) const;
    bool operator!=(const WBorder& other) const { return !(*this == other); }

private:
    Width mWidth = Medium;
    WLength mExplicitWidth;
    WColor mColor;
    Style mStyle = None;
};

} // namespace Wt
