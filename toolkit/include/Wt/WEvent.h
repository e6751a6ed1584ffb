#pragma once

#include <Wt/WGlobal.h>

#include <functional>
#include <string>

namespace boost::json {
class object;
}

namespace Wt {

namespace Impl {
class WebSession;
}

/// What WApplication::notify() is told of. Lives as long as that call.
class WEvent {
public:
    EventType eventType() const { return mType; }

private:
    friend class Impl::WebSession;
    friend class WApplication;

    struct Work {
        const std::function<void()>& handle;
    };
    WEvent(EventType type, const Work* work) : mType(type), mWork(work) {}

    EventType mType;
    const Work* mWork;
};

/// A mouse event; places in CSS pixels. Foreign data: coordinates may be anything.
class WMouseEvent {
public:
    enum Button { NoButton = 0, LeftButton = 1, MiddleButton = 2, RightButton = 4 };
    struct Coordinates {
        int x = 0, y = 0;
        Coordinates() = default;
        Coordinates(int x_, int y_) : x(x_), y(y_) {}
    };

    WMouseEvent() = default;
    explicit WMouseEvent(const boost::json::object& event);

    Button button() const { return mButton; }
    WFlags<KeyboardModifier> modifiers() const { return mModifiers; }
    /// Relative to the document, window, screen and widget.
    Coordinates document() const { return mDocument; }
    Coordinates window() const { return mWindow; }
    Coordinates screen() const { return mScreen; }
    Coordinates widget() const { return mWidget; }
    int wheelDelta() const { return mWheel; }

private:
    Button mButton = NoButton;
    WFlags<KeyboardModifier> mModifiers;
    Coordinates mDocument, mWindow, mScreen, mWidget;
    int mWheel = 0;
};

/// A key event.
class WKeyEvent {
public:
    WKeyEvent() = default;
    explicit WKeyEvent(const boost::json::object& event);

    Key key() const { return mKey; }
    WFlags<KeyboardModifier> modifiers() const { return mModifiers; }
    int charCode() const { return mCharCode; }
    std::string text() const;

private:
    Key mKey = Key_unknown;
    WFlags<KeyboardModifier> mModifiers;
    int mCharCode = 0;
};

/// A scroll of a container.
class WScrollEvent {
public:
    WScrollEvent() = default;
    explicit WScrollEvent(const boost::json::object& event);

    int scrollX() const { return mX; }
    int scrollY() const { return mY; }
    int viewportWidth() const { return mWidth; }
    int viewportHeight() const { return mHeight; }

private:
    int mX = 0, mY = 0, mWidth = 0, mHeight = 0;
};

} // namespace Wt
