#pragma once

#include "frame/DialogForm.h"

#include <string>

namespace Wt {
class WCheckBox;
class WFileUpload;
} // namespace Wt

/// Uploads one file to the Switch. Run with exec(), then ask result() and serverFileName().
class WFileUploadDialog : public DialogForm {
public:
    static constexpr int kTransferred = 0;
    static constexpr int kCancelled = 5;

    WFileUploadDialog();

    virtual void setMessage(const Wt::WString& text);
    /// Spool file on the Switch; empty unless transferred. It is removed with this dialog: whoever wants it
    /// moves it before.
    virtual std::string serverFileName() const;
    /// Name that the file had in the browser, UTF-8. Foreign: never a path to trust.
    virtual std::string clientFileName() const;
    virtual bool isCheckBoxChecked() const;
    /// kTransferred or kCancelled.
    virtual int result() const;

    virtual void sendButtonClickedHandler();
    virtual void cancelButtonClickedHandler();
    virtual void closeButtonClickedHandler();
    virtual void fileUploadedHandler();
    virtual void fileTooLargeHandler();

private:
    Wt::WFileUpload* mUpload;
    Wt::WCheckBox* mCheckBox;
    Wt::WPushButton* mSendButton;
    Wt::WPushButton* mCancelButton;
    int mResult = kCancelled;
};
