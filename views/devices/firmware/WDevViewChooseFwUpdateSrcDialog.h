#pragma once

#include "frame/DialogForm.h"

class WDevViewChooseFwUpdateSrcTable;

/// Chooses among the firmware files used before. Run with exec().
class WDevViewChooseFwUpdateSrcDialog : public DialogForm {
public:
    enum Button { None, Close, Delete, NewFile, Proceed }; // buttonClicked(); Delete leaves it open

    WDevViewChooseFwUpdateSrcDialog();

    int numberOfExistingEntries() const;
    /// Record index of the one file chosen; 0 if none or several are.
    unsigned selectedZeqIndex() const;
    WDevViewChooseFwUpdateSrcTable* table() const { return mTable; }

    void cancelButtonClickedHandler();
    void newFileButtonClickedHandler();
    void finishButtonClickedHandler();
    void deleteButtonClickedHandler();
    void selectionChangedHandler();

private:
    WDevViewChooseFwUpdateSrcTable* mTable;
    Wt::WPushButton* mProceedButton;
    Wt::WPushButton* mDeleteButton;
};
