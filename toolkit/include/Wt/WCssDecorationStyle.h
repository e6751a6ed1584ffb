#pragma once

#include <Wt/WBorder.h>
#include <Wt/WColor.h>
#include <Wt/WFont.h>
#include <Wt/WGlobal.h>

#include <functional>

namespace Wt {

/// Cursor, colours, border and font of a widget, where style sheets are not enough.
class WCssDecorationStyle {
public:
    enum TextDecoration { Underline = 0x1, Overline = 0x2, LineThrough = 0x4, Blink = 0x8 };

    WCssDecorationStyle() = default;

    void setCursor(Cursor cursor);
    void setBackgroundColor(WColor color);
    void setForegroundColor(WColor color);
    void setBorder(WBorder border, WFlags<Side> sides = All);
    void setFont(const WFont& font);
    void setTextDecoration(WFlags<TextDecoration> options);

    Cursor cursor() const { return mCursor; }
    WColor backgroundColor() const { return mBackground; }
    WColor foregroundColor() const { return mForeground; }
    WBorder border(Side side = Top) const;
    WFont font() const { return mFont; }
    WFlags<TextDecoration> textDecoration() const { return mTextDecoration; }

    /// The CSS properties that differ from the default, as (name, value).
    void forEachProperty(const std::function<void(const char*, const std::string&)>& use) const;

private:
    friend class WWebWidget;

    std::function<void()> mChanged; // set by the widget that owns this
    Cursor mCursor = AutoCursor;
    WColor mBackground, mForeground;
    WBorder mBorders[4]; // top, right, bottom, left
    WFont mFont;
    WFlags<TextDecoration> mTextDecoration;
};
W_DECLARE_OPERATORS_FOR_FLAGS(WCssDecorationStyle::TextDecoration)

} // namespace Wt
