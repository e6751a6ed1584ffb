#include <Wt/WEvent.h>

#include "core/ForeignJson.h"
#include "core/Utf8.h"

namespace Wt {

using Impl::foreignInt;

WMouseEvent::WMouseEvent(const boost::json::object& event)
    : mModifiers(foreignInt(event, "m") & 0xF), mDocument(foreignInt(event, "dx"), foreignInt(event, "dy")),
      mWindow(foreignInt(event, "x"), foreignInt(event, "y")),
      mScreen(foreignInt(event, "sx"), foreignInt(event, "sy")),
      mWidget(foreignInt(event, "wx"), foreignInt(event, "wy")), mWheel(foreignInt(event, "d")) {
    // The browser counts buttons 0 left, 1 middle, 2 right.
    switch (foreignInt(event, "b", -1)) {
    case 0:
        mButton = LeftButton;
        break;
    case 1:
        mButton = MiddleButton;
        break;
    case 2:
        mButton = RightButton;
        break;
    default:
        mButton = NoButton;
    }
}

WKeyEvent::WKeyEvent(const boost::json::object& event)
    : mKey(static_cast<Key>(foreignInt(event, "c") & 0xFF)), mModifiers(foreignInt(event, "m") & 0xF),
      mCharCode(foreignInt(event, "u")) {}

std::string WKeyEvent::text() const {
    std::string text;
    if (mCharCode > 0) Impl::appendCodePoint(text, static_cast<char32_t>(mCharCode));
    return text;
}

WScrollEvent::WScrollEvent(const boost::json::object& event)
    : mX(foreignInt(event, "x")), mY(foreignInt(event, "y")), mWidth(foreignInt(event, "w")),
      mHeight(foreignInt(event, "h")) {}

} // namespace Wt
