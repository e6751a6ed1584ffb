#pragma once

#include "frame/ActionResults.h"
#include "frame/DialogForm.h"

class WLinkPeerDialogSwxList;

/// Lets a Switch be chosen that stands in for this one. Run with exec(); result() tells how it ended.
class WLinkPeerDialog : public DialogForm {
public:
    WLinkPeerDialog();

    /// Select is enabled while a row is selected.
    void selectionChangedHandler();
    void selectButtonClickedHandler();

    /// What became of the request, if one was made.
    const ActionResults& results() const { return mResults; }
    WLinkPeerDialogSwxList* list() const { return mList; }

private:
    enum Button { None, Select, Cancel };

    WLinkPeerDialogSwxList* mList;
    Wt::WPushButton* mSelect;
    ActionResults mResults;
};
