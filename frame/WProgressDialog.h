#pragma once

#include <Wt/WDialog>

namespace Wt {
class WProgressBar;
class WPushButton;
class WText;
} // namespace Wt

class WDialogHeading;

/// A bar that its maker drives, usually by a timer of his own, and a button that ends the wait.
class WProgressDialog : public Wt::WDialog {
public:
    /// imagePath: file name in the brand's theme folder.
    WProgressDialog(const char* imagePath, const Wt::WString& title, const Wt::WString& text,
                    const Wt::WString& buttonText);

    virtual void titleSet(const Wt::WString& title);
    virtual void buttonTextSet(const Wt::WString& text);
    virtual void msgSet(const Wt::WString& text);
    /// 0 to 100, the bar's range.
    virtual void progressUpdate(double percent);
    virtual void buttonClickedHandler();

private:
    WDialogHeading* mHeading;
    Wt::WText* mText;
    Wt::WProgressBar* mBar;
    Wt::WPushButton* mButton;
};
