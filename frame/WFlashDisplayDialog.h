#pragma once

#include "frame/DialogForm.h"

class WLineEditPlus;

/// Asks how long the display of a device is to flash. Run with exec().
/// Both buttons accept it, Escape rejects it.
class WFlashDisplayDialog : public DialogForm {
public:
    /// Message key of the words above the field.
    explicit WFlashDisplayDialog(const char* explanationKey);

    /// True unless the Flash button ended the dialog.
    bool cancelWasClicked() const { return mCancelled; }
    /// 0 to 86400, as it was when a button was clicked.
    unsigned int getDurationSec() const { return mDurationSec; }

    void durationFieldChangedHandler();
    void flashButtonClickedHandler();
    void cancelButtonClickedHandler();

protected:
    void judgeFields() override { durationFieldChangedHandler(); }

private:
    void finish(bool cancelled);

    WLineEditPlus* mDurationField;
    Wt::WPushButton* mFlashButton;
    Wt::WPushButton* mCancelButton;
    unsigned int mDurationSec = 0;
    bool mCancelled = true;
};
