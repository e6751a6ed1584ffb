#pragma once

#include "frame/WMsgBox.h"

#include <initializer_list>
#include <string>

/// One question before a dangerous action, which the user may turn off for good.
struct DevConfirmation {
    const char* flag; // of the logged-in user's record: ask or not
    const char* title;
    const char* message;
    const char* proceed; // label of the button that lets the action go on
};

/// Asks unless the user has turned that off; a setting that cannot be read counts as on. True: go on. A
/// ticked "do not show again" is stored whatever button ends the box.
bool devConfirm(const DevConfirmation& confirmation);

/// Runs a box and gives the number of the button that ended it (WMsgBox::buttonClicked). Title and buttons
/// are message keys, the text is the user's own words.
int devShowBox(WMsgBox::MsgType type, const char* title, const Wt::WString& text,
               std::initializer_list<const char*> buttons);
