#pragma once

#include <Wt/WDialog>

namespace Wt {
class WPushButton;
}

class WPrefsTable;

/// A user's own warning switches. Run with exec().
class WPrefs : public Wt::WDialog {
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
