#pragma once

#include "frame/PageFrame.h"

#include <string>
#include <vector>

namespace Wt {
class WPushButton;
class WText;
} // namespace Wt

class WSettingsTable;
class WUsrViewAttribsTable;

/// The whole interface of a Switch that a manager or a master rules: the place it has, its addresses, and the account of the
/// administrator who is logged in. Save writes all of it at once.
class OneSwitchPage : public PageFrame {
public:
    /// Reads everything of this Switch. What the user has changed stays unless `force`.
    virtual void readFromDatabase(bool force);
    /// Unsaved edits exist.
    bool anythingChanged() const;

    virtual void contentChangedHandler();
    virtual void saveButtonClickedHandler();
    virtual void cancelButtonClickedHandler();

    virtual void rebootButtonClicked();
    virtual void flashButtonClicked();
    virtual void promotePeerButtonClicked();

    Wt::WPushButton* saveButton() const { return mSave; }
    Wt::WPushButton* cancelButton() const { return mCancel; }
    Wt::WText* explanation() const { return mExplanation; }

protected:
    /// What the two pages have of their own. Texts are message keys.
    struct Spec {
        const char* explanation;
        const char* modeHeading;
        const char* rebootsNow; // said when Save has changed the mode
    };

    /// Takes ownership of the table.
    OneSwitchPage(const Spec& spec, WSettingsTable* mode, Wt::WContainerWidget* parent);

    /// What is to be saved changes the mode of the Switch, which then reboots.
    virtual bool modeIsChanged() const = 0;
    /// What one value decides about others, behind every read and edit.
    virtual void setDependentWidgets() {}

    void refresh() override { readFromDatabase(false); }

private:
    void addSection(Wt::WContainerWidget* content, const char* heading, WSettingsTable* table);
    void enableButtons();
    /// Records that the tables read and write: this Switch; for the account, that of the logged-in user.
    static std::vector<unsigned> recordsOf(const WSettingsTable* table, const WUsrViewAttribsTable* user);

    const Spec mSpec;
    std::vector<WSettingsTable*> mTables; // in the order in which they are saved
    WUsrViewAttribsTable* mUser;
    Wt::WText* mExplanation;
    Wt::WPushButton* mCancel;
    Wt::WPushButton* mSave;
};
