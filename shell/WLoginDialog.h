#pragma once

#include <Wt/WDialog>

#include <string>

namespace Wt {
class WAnchor;
class WLineEdit;
class WPushButton;
} // namespace Wt

/// Asks for user name and password. Only the fields and what stands around them:
/// the session connects the widgets.
class WLoginDialog : public Wt::WDialog {
public:
    /// `reason`: message key of why the last session ended, or empty.
    explicit WLoginDialog(const char* reason);

    void setFocusOnUsernameField();
    void clearFields();

    std::string usernameGet() const; // UTF-8

    Wt::WLineEdit* usernameField;
    Wt::WLineEdit* passwordField;
    Wt::WPushButton* loginButton;
    Wt::WAnchor* forgotPasswordAnchor;
};
