// Colours, fonts, borders and the decoration style made of them.
#include <Wt/WCssDecorationStyle.h>

#include "core/OrderedRows.h"

#include <cstdio>

namespace Wt {

namespace {
constexpr unsigned char kStandard[][3] = {
    {255, 255, 255}, {0, 0, 0},     {255, 0, 0},     {128, 0, 0},     {0, 255, 0},     {0, 128, 0},
    {0, 0, 255},     {0, 0, 128},   {0, 255, 255},   {0, 128, 128},   {255, 0, 255},   {128, 0, 128},
    {255, 255, 0},   {128, 128, 0}, {160, 160, 164}, {128, 128, 128}, {192, 192, 192}, {0, 0, 0}};
template <class E>
using Word = Impl::RowOf<E, const char*>;

constexpr Word<WBorder::Style> kBorderStyles[] = {
    {WBorder::None, "none"},     {WBorder::Hidden, "hidden"}, {WBorder::Dotted, "dotted"},
    {WBorder::Dashed, "dashed"}, {WBorder::Solid, "solid"},   {WBorder::Double, "double"},
    {WBorder::Groove, "groove"}, {WBorder::Ridge, "ridge"},   {WBorder::Inset, "inset"},
    {WBorder::Outset, "outset"},
};
static_assert(coversInOrder(kBorderStyles, WBorder::Outset));

constexpr Word<WBorder::Width> kBorderWidths[] = {
    {WBorder::Thin, "thin"}, {WBorder::Medium, "medium"}, {WBorder::Thick, "thick"}};
static_assert(coversInOrder(kBorderWidths, WBorder::Thick)); // Explicit is a length

constexpr Word<Cursor> kCursors[] = {
    {ArrowCursor, "default"},        {AutoCursor, ""},          {CrossCursor, "crosshair"},
    {PointingHandCursor, "pointer"}, {OpenHandCursor, "move"},  {WaitCursor, "wait"},
    {IBeamCursor, "text"},           {WhatsThisCursor, "help"},
};
static_assert(coversInOrder(kCursors, WhatsThisCursor));

constexpr Word<WFont::GenericFamily> kFamilies[] = {
    {WFont::Default, ""},        {WFont::Serif, "serif"},     {WFont::SansSerif, "sans-serif"},
    {WFont::Cursive, "cursive"}, {WFont::Fantasy, "fantasy"}, {WFont::Monospace, "monospace"},
};
static_assert(coversInOrder(kFamilies, WFont::Monospace));

constexpr Word<WFont::Style> kFontStyles[] = {
    {WFont::NormalStyle, ""}, {WFont::Italic, "italic"}, {WFont::Oblique, "oblique"}};
static_assert(coversInOrder(kFontStyles, WFont::Oblique));

constexpr Word<WFont::Weight> kWeights[] = {
    {WFont::NormalWeight, ""}, {WFont::Bold, "bold"}, {WFont::Bolder, "bolder"}, {WFont::Lighter, "lighter"}};
static_assert(coversInOrder(kWeights, WFont::Lighter)); // Value is a number

constexpr Word<WFont::Size> kSizes[] = {
    {WFont::XXSmall, "xx-small"}, {WFont::XSmall, "x-small"},  {WFont::Small, "small"},
    {WFont::Medium, ""},          {WFont::Large, "large"},     {WFont::XLarge, "x-large"},
    {WFont::XXLarge, "xx-large"}, {WFont::Smaller, "smaller"}, {WFont::Larger, "larger"},
};
static_assert(coversInOrder(kSizes, WFont::Larger)); // FixedSize is a length

constexpr Side kSides[] = {Top, Right, Bottom, Left};
constexpr const char* kBorderNames[] = {"border-top", "border-right", "border-bottom", "border-left"};
} // namespace

WColor::WColor(int red, int green, int blue, int alpha)
    : mDefault(false), mRed(static_cast<unsigned char>(red)), mGreen(static_cast<unsigned char>(green)),
      mBlue(static_cast<unsigned char>(blue)), mAlpha(static_cast<unsigned char>(alpha)) {}

WColor::WColor(const WString& name) : mDefault(false), mName(name) {}

WColor::WColor(StandardColor color)
    : WColor(kStandard[color][0], kStandard[color][1], kStandard[color][2], color == transparent ? 0 : 255) {}

const std::string WColor::cssText(bool withAlpha) const {
    if (mDefault) return "";
    if (!mName.empty()) return mName.toUTF8();
    char text[48];
    if (mAlpha != 255 && withAlpha)
        std::snprintf(text, sizeof text, "rgba(%d,%d,%d,%.3g)", mRed, mGreen, mBlue, mAlpha / 255.0);
    else
        std::snprintf(text, sizeof text, "#%02x%02x%02x", mRed, mGreen, mBlue);
    return text;
}

bool WColor::operator==(const WColor& o) const {
    return mDefault == o.mDefault && mRed == o.mRed && mGreen == o.mGreen && mBlue == o.mBlue &&
           mAlpha == o.mAlpha && mName == o.mName;
}

void WFont::setFamily(GenericFamily family, const WString& specific) {
    mFamily = family;
    mSpecific = specific;
}

void WFont::setWeight(Weight weight, int value) {
    mWeight = weight;
    mWeightValue = value;
}

void WFont::setSize(Size size) {
    mSize = size;
}

void WFont::setSize(const WLength& size) {
    mSize = FixedSize;
    mFixedSize = size;
}

std::string WFont::cssFamily() const {
    const std::string specific = mSpecific.toUTF8();
    const std::string generic = kFamilies[mFamily].is;
    return specific.empty() || generic.empty() ? specific + generic : specific + "," + generic;
}

std::string WFont::cssStyle() const {
    return kFontStyles[mStyle].is;
}
std::string WFont::cssWeight() const {
    return mWeight == Value ? std::to_string(mWeightValue) : kWeights[mWeight].is;
}
std::string WFont::cssSize() const {
    return mSize == FixedSize ? mFixedSize.cssText() : kSizes[mSize].is;
}

bool WFont::operator==(const WFont& o) const {
    return cssFamily() == o.cssFamily() && mStyle == o.mStyle && cssWeight() == o.cssWeight() &&
           cssSize() == o.cssSize();
}

WBorder::WBorder(Style style, Width width, WColor color) : mWidth(width), mColor(color), mStyle(style) {}
WBorder::WBorder(Style style, const WLength& width, WColor color)
    : mWidth(Explicit), mExplicitWidth(width), mColor(color), mStyle(style) {}

void WBorder::setWidth(Width width, const WLength& explicitWidth) {
    mWidth = width;
    mExplicitWidth = explicitWidth;
}

const std::string WBorder::cssText() const {
    std::string text = mWidth == Explicit ? mExplicitWidth.cssText() : kBorderWidths[mWidth].is;
    text += std::string(" ") + kBorderStyles[mStyle].is;
    if (!mColor.isDefault()) text += " " + mColor.cssText();
    return text;
}

bool WBorder::operator==(const WBorder& o) const {
    return mWidth == o.mWidth && mExplicitWidth == o.mExplicitWidth && mColor == o.mColor &&
           mStyle == o.mStyle;
}

void WCssDecorationStyle::setCursor(Cursor cursor) {
    mCursor = cursor;
    if (mChanged) mChanged();
}

void WCssDecorationStyle::setBackgroundColor(WColor color) {
    mBackground = color;
    if (mChanged) mChanged();
}

void WCssDecorationStyle::setForegroundColor(WColor color) {
    mForeground = color;
    if (mChanged) mChanged();
}

void WCssDecorationStyle::setBorder(WBorder border, WFlags<Side> sides) {
    for (int i = 0; i < 4; ++i)
        if (sides & kSides[i]) mBorders[i] = border;
    if (mChanged) mChanged();
}

void WCssDecorationStyle::setFont(const WFont& font) {
    mFont = font;
    if (mChanged) mChanged();
}

void WCssDecorationStyle::setTextDecoration(WFlags<TextDecoration> options) {
    mTextDecoration = options;
    if (mChanged) mChanged();
}

WBorder WCssDecorationStyle::border(Side side) const {
    for (int i = 0; i < 4; ++i)
        if (kSides[i] == side) return mBorders[i];
    return mBorders[0];
}

void WCssDecorationStyle::forEachProperty(
    const std::function<void(const char*, const std::string&)>& use) const {
    const auto tell = [&](const char* name, const std::string& value) {
        if (!value.empty()) use(name, value);
    };
    tell("cursor", kCursors[mCursor].is);
    tell("background-color", mBackground.cssText(true));
    tell("color", mForeground.cssText(true));
    for (int i = 0; i < 4; ++i)
        if (!(mBorders[i] == WBorder())) tell(kBorderNames[i], mBorders[i].cssText());
    tell("font-family", mFont.cssFamily());
    tell("font-style", mFont.cssStyle());
    tell("font-weight", mFont.cssWeight());
    tell("font-size", mFont.cssSize());
    std::string lines;
    if (mTextDecoration & Underline) lines += "underline ";
    if (mTextDecoration & Overline) lines += "overline ";
    if (mTextDecoration & LineThrough) lines += "line-through ";
    if (!lines.empty()) lines.pop_back();
    tell("text-decoration", lines);
}

} // namespace Wt
