#pragma once

#include "db/Info.h"
#include "frame/DialogForm.h"

class WEstabSesRxTable;
class WEstabSesTxTable;
class WEstabSesUsrTable;
class WSesMode;

/// Asks what to join for whom: mode, then user, Receiver and Transmitter, each list as the picks before it allow.
/// Run with exec().
class WEstabSesDialog : public DialogForm {
public:
    enum Button { None, Connect, Cancel }; // buttonClicked(); both accept

    WEstabSesDialog();

    /// Record indexes, 0 where nothing is picked.
    void getSelectedParameters(unsigned& usrIndex, unsigned& rxIndex, unsigned& txIndex,
                               Info_ConnectionMode& mode) const;

    WSesMode* mode() const { return mMode; }
    WEstabSesUsrTable* users() const { return mUsers; }
    WEstabSesRxTable* receivers() const { return mReceivers; }
    WEstabSesTxTable* transmitters() const { return mTransmitters; }

private:
    template <class Table>
    Table* addTable(int widthPx, void (WEstabSesDialog::*changed)());
    Info_ConnectionMode wanted() const;
    void modeChangedHandler();
    void usrSelectionChangedHandler();
    void rxSelectionChangedHandler();
    void txSelectionChangedHandler();
    void sayWhyEmpty();

    WSesMode* mMode;
    Wt::WContainerWidget* mLists;
    WEstabSesUsrTable* mUsers;
    WEstabSesRxTable* mReceivers;
    WEstabSesTxTable* mTransmitters;
    Wt::WPushButton* mConnect;
};
