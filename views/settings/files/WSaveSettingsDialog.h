#pragma once

#include "frame/DialogForm.h"
#include "views/settings/files/SettingsDownload.h"

namespace Wt {
class WAnchor;
class WFileResource;
class WStackedWidget;
} // namespace Wt

/// Has the service write all settings to a file, and offers it. Run with exec(). The file goes with the dialog.
class WSaveSettingsDialog : public DialogForm {
public:
    enum Button { None, Cancel };

    WSaveSettingsDialog();

    /// Next is enabled exactly while both passwords are the same and of letters and digits; empty ones are.
    void passwordChangedHandler();
    void nextButtonClickedHandler();

    Wt::WLineEdit* passwordField() const { return mPassword; }
    Wt::WLineEdit* confirmField() const { return mConfirm; }
    Wt::WAnchor* fileLink() const { return mLink; }

protected:
    void judgeFields() override { passwordChangedHandler(); }

private:
    void addFields();
    void offer();
    void removeNext();

    SettingsDownload mDownload;
    Wt::WStackedWidget* mStack;
    Wt::WLineEdit* mPassword = nullptr;
    Wt::WLineEdit* mConfirm = nullptr;
    Wt::WAnchor* mLink;
    Wt::WPushButton* mCancelButton;
    Wt::WPushButton* mNextButton; // null when it is gone
};
