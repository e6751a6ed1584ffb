#pragma once

namespace Wt {
class WContainerWidget;
class WPushButton;
class WString;
class WText;
} // namespace Wt

/// What message boxes and dialogs are made of.

constexpr int kMsgBoxPaddingPx = 12;
constexpr int kMsgBoxButtonPaddingPx = 4;

/// Image file for a message of type 0 information, 1 warning, 2 error.
const char* msgBoxImage(int type);

/// Text as it stands, line ends kept.
Wt::WText* newMsgBoxText(const Wt::WString& text);

/// A button in its cell or row, with some room around it.
Wt::WPushButton* newMsgBoxButton(const Wt::WString& text, Wt::WContainerWidget* cell);

/// Right-aligned row for a dialog's buttons.
Wt::WContainerWidget* newMsgBoxButtonRow(Wt::WContainerWidget* parent);
