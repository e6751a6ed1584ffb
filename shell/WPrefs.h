#pragma once

#include "frame/DialogForm.h"

class WPrefsTable;

/// A user's own warning switches. Run with exec().
class WPrefs : public DialogForm {
public:
    WPrefs();

    virtual void contentChangedHandler();
    virtual void saveButtonClickedHandler();
    virtual void cancelButtonClickedHandler();

private:
    Wt::WPushButton* mSaveButton;
    Wt::WPushButton* mCancelButton;
    WPrefsTable* mTable;
};
