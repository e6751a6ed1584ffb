#pragma once

#include "frame/DialogForm.h"

class WEstabSesRxTable;

/// Asks at which Receiver a user is to be logged in. Run with exec().
/// Offers the Receivers that the user may use now.
class WForceLoginDialog : public DialogForm {
public:
    enum Button { None, Login, Cancel }; // buttonClicked(); both accept

    explicit WForceLoginDialog(unsigned int usrIndex);

    /// Record index of the Receiver picked; 0 when none is.
    unsigned int rxSelected() const { return mRxSelected; }

    void loginButtonClickedHandler();
    void cancelButtonClickedHandler();
    void selectionChangedHandler();

private:
    WEstabSesRxTable* mTable;
    Wt::WPushButton* mLoginButton;
    unsigned int mRxSelected = 0;
};
