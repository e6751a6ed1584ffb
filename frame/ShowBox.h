#pragma once

#include "frame/WMsgBox.h"

#include <array>
#include <cstddef>

/// What stays the same of a notice, a result or a question; its text comes with the call.
struct BoxRow {
    WMsgBox::MsgType type;
    const char* title;                    // message key
    std::array<const char*, 3> buttons{}; // message keys, the first one rightmost; none = it stands
    int maxWidthPx = 300;                 // 0 = no limit
};

/// Puts the row's title, the text and the buttons into an empty box.
void fillBox(WMsgBox& box, const BoxRow& row, const Wt::WString& text);

/// Runs the box and gives the number of the button that ended it (WMsgBox::buttonClicked).
int showBox(const BoxRow& row, const Wt::WString& text);

/// A button and what it stands for.
template <class Value>
struct BoxChoice {
    const char* button; // message key
    Value value;
};

/// Runs a box with a button for each choice, in the place of the row's own, and gives the value of the one
/// that was clicked; `ifClosed` when none was.
template <class Value, std::size_t count>
Value chooseInBox(BoxRow row, const Wt::WString& text, const BoxChoice<Value> (&choices)[count],
                  Value ifClosed) {
    static_assert(count <= std::tuple_size_v<decltype(row.buttons)>);
    row.buttons = {};
    for (std::size_t i = 0; i < count; ++i) row.buttons[i] = choices[i].button;
    const int button = showBox(row, text);
    return button == 0 ? ifClosed : choices[button - 1].value;
}
