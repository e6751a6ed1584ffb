#pragma once

#include "frame/ListPage.h"
#include "views/users/UsrTab.h"

class WNavAccordionStdCell;
class WUsrViewAttribs;
class WUsrViewFavTargets;
class WUsrViewList;
class WUsrViewTargets;

/// The Users tab: every account in one list, actions on the selected ones, and their rights and settings in the pane
/// below. A new account is stored at once under a provisional name, which the administrator then replaces; it goes
/// when the first save does not come.
class WUsrView : public ListPage {
public:
    explicit WUsrView(Wt::WContainerWidget* parent = nullptr);

    virtual void newUsrActionButtonClicked();
    virtual void loginUsrActionButtonClicked();
    virtual void logoutUsrActionButtonClicked();
    virtual void deleteUsrActionButtonClicked();
    virtual void usrListSelectionChangedHandler();
    virtual void tabChangedHandler();
    virtual void attribsSaveButtonClickedHandler();
    virtual void attribsCancelButtonClickedHandler();
    virtual void targetsSaveButtonClickedHandler();
    virtual void targetsCancelButtonClickedHandler();
    virtual void favsSaveButtonClickedHandler();
    virtual void favsCancelButtonClickedHandler();

    /// The user leaves the page and its unsaved edits.
    virtual void discardChanges();
    /// The session ends: what only it would have finished goes. Changes nothing on the page.
    void dropProvisionalUser();

    bool newUserPending() const { return mProvisional != 0; }
    WUsrViewList* list() const { return mList; }
    DetailsTabs* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(UserAction action) const;

protected:
    void showSelection(bool forceDetails) override;
    void afterSave() override;
    /// The user's own account comes last: what is done to it may end the right to do it to the others.
    std::vector<unsigned> chosenRecords() const override;

private:
    WUsrViewAttribs& attribs() const;
    WUsrViewTargets& targets() const;
    WUsrViewFavTargets& favs() const;
    /// False: the login has ended, and the session with it.
    bool loginStands() const;

    WUsrViewList* mList;
    DetailsTabs* mDetails;
    unsigned mProvisional = 0; // record of a new account until it is saved; 0 = none
};
