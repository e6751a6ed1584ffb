#pragma once

#include "frame/DialogForm.h"

namespace Wt {
class WProgressBar;
}

/// A bar that its maker drives, usually by a timer of his own, and a button that ends the wait.
class WProgressDialog : public DialogForm {
public:
    /// imagePath: file name in the brand's theme folder.
    WProgressDialog(const char* imagePath, const Wt::WString& title, const Wt::WString& text,
                    const Wt::WString& buttonText);

    virtual void buttonTextSet(const Wt::WString& text);
    virtual void msgSet(const Wt::WString& text);
    /// 0 to 100, the bar's range.
    virtual void progressUpdate(double percent);
    virtual void buttonClickedHandler();

private:
    Wt::WProgressBar* mBar;
    Wt::WPushButton* mButton;
};
