#pragma once

#include "frame/DialogForm.h"

namespace Wt {
class WFileUpload;
} // namespace Wt

/// Takes a settings file from the browser and has the service check and install it; a reboot of the Switch makes it
/// work. Run with exec().
class WLoadSettingsDialog : public DialogForm {
public:
    enum Result { Installed = 0, NotLoaded = 1, Cancelled = 5, TooLarge = 15, Refused = 16 };

    WLoadSettingsDialog();

    void nextButtonClickedHandler();
    void fileUploadedHandler();
    void fileTooLargeHandler();
    void rebootButtonClickedHandler();
    void cancelButtonClickedHandler();

    int result() const { return mResult; }
    Wt::WFileUpload* upload() const { return mUpload; }
    Wt::WLineEdit* passwordField() const { return mPassword; }

private:
    enum class Step { Warned, Chooses, Transfers };

    void addFields();
    void showFields(bool shown);
    void transfer();
    void end(Result result, const char* text);

    Step mStep = Step::Warned;
    Result mResult = NotLoaded;
    Wt::WFileUpload* mUpload;
    Wt::WLineEdit* mPassword = nullptr;
    Wt::WPushButton* mCancelButton;
    Wt::WPushButton* mNextButton;             // null when it is gone
    Wt::WPushButton* mRebootButton = nullptr; // made when the settings are installed
};
