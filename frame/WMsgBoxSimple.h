#pragma once

#include <Wt/WDialog>
#include <Wt/WString>

namespace Wt {
class WPushButton;
}

/// Message box without a nested event loop: its maker connects the buttons and finished(), shows it with
/// show(), and deletes it.
class WMsgBoxSimple : public Wt::WDialog {
public:
    enum MsgType { Info, Warning, Error };

    /// An empty second button is left out: button2 is then null.
    WMsgBoxSimple(MsgType type, const Wt::WString& title, const Wt::WString& text, const Wt::WString& button1,
                  const Wt::WString& button2 = Wt::WString());
    ~WMsgBoxSimple() override;

    Wt::WPushButton* button1;
    Wt::WPushButton* button2 = nullptr;
};
