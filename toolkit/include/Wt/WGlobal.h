#pragma once

#include <Wt/WFlags.h>

#include <boost/function.hpp>

/// Enumerations that several classes share. The numbers are part of the interface.
namespace Wt {

class WApplication;
class WEnvironment;

/// What stands behind an entry point.
enum EntryPointType {
    Application,   ///< a whole page, owned by the application
    WidgetSet,     ///< widgets inside somebody else's page; not offered by this server
    StaticResource ///< a WResource
};

/// Makes the application of a new session. The session owns what is returned; null refuses the session.
typedef boost::function<WApplication*(const WEnvironment&)> ApplicationCreator;

/// Stands for an absent argument of a signal.
class NoClass {};
extern const NoClass NoClass_;

enum AlignmentFlag {
    AlignLeft = 0x1,
    AlignRight = 0x2,
    AlignCenter = 0x4,
    AlignJustify = 0x8,
    AlignBaseline = 0x10,
    AlignSub = 0x20,
    AlignSuper = 0x40,
    AlignTop = 0x80,
    AlignTextTop = 0x100,
    AlignMiddle = 0x200,
    AlignBottom = 0x400,
    AlignTextBottom = 0x800,
    AlignLength = 0x1000
};
W_DECLARE_OPERATORS_FOR_FLAGS(AlignmentFlag)

constexpr int AlignHorizontalMask = AlignLeft | AlignRight | AlignCenter | AlignJustify;
constexpr int AlignVerticalMask = AlignBaseline | AlignSub | AlignSuper | AlignTop | AlignTextTop |
                                  AlignMiddle | AlignBottom | AlignTextBottom;

enum Side {
    None = 0x0,
    Top = 0x1,
    Bottom = 0x2,
    Left = 0x4,
    Right = 0x8,
    CenterX = 0x10,
    CenterY = 0x20,
    Verticals = Left | Right,
    Horizontals = Top | Bottom,
    All = Verticals | Horizontals
};
W_DECLARE_OPERATORS_FOR_FLAGS(Side)

enum Orientation { Horizontal = 0x1, Vertical = 0x2 };
W_DECLARE_OPERATORS_FOR_FLAGS(Orientation)

enum PositionScheme { Static, Relative, Absolute, Fixed };

enum StandardButton {
    NoButton = 0x00,
    Ok = 0x01,
    Cancel = 0x02,
    Yes = 0x04,
    No = 0x08,
    Abort = 0x10,
    Retry = 0x20,
    Ignore = 0x40,
    YesAll = 0x80,
    NoAll = 0x100
};
W_DECLARE_OPERATORS_FOR_FLAGS(StandardButton)

enum Icon { NoIcon = 0, Information = 1, Warning = 2, Critical = 3, Question = 4 };

/// How text is understood. XHTMLText is filtered: only harmless elements and attributes reach the page.
enum TextFormat { XHTMLText, XHTMLUnsafeText, PlainText };

enum CharEncoding { DefaultEncoding, LocalEncoding, UTF8 };

enum AnchorTarget { TargetSelf, TargetThisWindow, TargetNewWindow, TargetDownload };

enum CheckState { Unchecked = 0, PartiallyChecked = 1, Checked = 2 };

enum KeyboardModifier {
    NoModifier = 0x0,
    ShiftModifier = 0x1,
    ControlModifier = 0x2,
    AltModifier = 0x4,
    MetaModifier = 0x8
};
W_DECLARE_OPERATORS_FOR_FLAGS(KeyboardModifier)

enum Key {
    Key_unknown = 0,
    Key_Enter = 13,
    Key_Tab = 9,
    Key_Backspace = 8,
    Key_Shift = 16,
    Key_Control = 17,
    Key_Alt = 18,
    Key_PageUp = 33,
    Key_PageDown = 34,
    Key_End = 35,
    Key_Home = 36,
    Key_Left = 37,
    Key_Up = 38,
    Key_Right = 39,
    Key_Down = 40,
    Key_Insert = 45,
    Key_Delete = 46,
    Key_Escape = 27,
    Key_Space = 32,
    Key_F1 = 112,
    Key_F2 = 113,
    Key_F3 = 114,
    Key_F4 = 115,
    Key_F5 = 116,
    Key_F6 = 117,
    Key_F7 = 118,
    Key_F8 = 119,
    Key_F9 = 120,
    Key_F10 = 121,
    Key_F11 = 122,
    Key_F12 = 123
};

/// What made an event. Timers of the browser are TimerEvent: they are no activity of a user.
enum EventType { OtherEvent, UserEvent, TimerEvent, ResourceEvent };

enum StandardColor {
    white,
    black,
    red,
    darkRed,
    green,
    darkGreen,
    blue,
    darkBlue,
    cyan,
    darkCyan,
    magenta,
    darkMagenta,
    yellow,
    darkYellow,
    gray,
    darkGray,
    lightGray,
    transparent
};

enum LayoutDirection { LeftToRight, RightToLeft };

enum Cursor {
    ArrowCursor,
    AutoCursor,
    CrossCursor,
    PointingHandCursor,
    OpenHandCursor,
    WaitCursor,
    IBeamCursor,
    WhatsThisCursor
};

} // namespace Wt
