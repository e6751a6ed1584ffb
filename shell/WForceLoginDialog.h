#pragma once

#include <Wt/WDialog>

namespace Wt {
class WPushButton;
}

class WDialogHeading;
class WEstabSesRxTable;

/// Asks at which Receiver a user is to be logged in. Run with exec();
/// offers the Receivers that the user may use now.
class WForceLoginDialog : public Wt::WDialog {
public:
    explicit WForceLoginDialog(unsigned int usrIndex);

    void titleSet(const Wt::WString& title);

    /// 1 Login, 2 Cancel, 0 when the dialog was rejected.
    int buttonClicked() const { return mButtonClicked; }
    /// Record index of the Receiver picked; 0 when none is.
    unsigned int rxSelected() const { return mRxSelected; }

    void loginButtonClickedHandler();
    void cancelButtonClickedHandler();
    void selectionChangedHandler();

private:
    void finish(int button);

    WDialogHeading* mHeading;
    WEstabSesRxTable* mTable;
    Wt::WPushButton* mLoginButton;
    unsigned int mRxSelected = 0;
    int mButtonClicked = 0;
};
