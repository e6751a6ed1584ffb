#pragma once

#include <Wt/WDialog>

namespace Wt {
class WPushButton;
}

class WDevViewChooseFwUpdateSrcTable;
class WDialogHeading;

/// Chooses among the firmware files used before. Run with exec().
class WDevViewChooseFwUpdateSrcDialog : public Wt::WDialog {
public:
    enum Button { None, Close, Delete, NewFile, Proceed };

    WDevViewChooseFwUpdateSrcDialog();

    /// The last button used. Deleting leaves the dialog open.
    Button buttonClicked() const { return mButtonClicked; }
    int numberOfExistingEntries() const;
    /// Record index of the one file chosen; 0 if none or several are.
    unsigned selectedZeqIndex() const;
    WDevViewChooseFwUpdateSrcTable* table() const { return mTable; }

    void titleSet(const Wt::WString& title);

    void cancelButtonClickedHandler();
    void newFileButtonClickedHandler();
    void finishButtonClickedHandler();
    void deleteButtonClickedHandler();
    void selectionChangedHandler();

private:
    WDialogHeading* mHeading;
    WDevViewChooseFwUpdateSrcTable* mTable;
    Wt::WPushButton* mProceedButton;
    Wt::WPushButton* mDeleteButton;
    Button mButtonClicked = None;
};
