#pragma once

#include "frame/DialogForm.h"

#include <string>

class WLineEditPlus;

/// Asks an administrator who has no password yet for the first one, twice. The session connects the button.
class WInitAdminPasswordDialog : public DialogForm {
public:
    explicit WInitAdminPasswordDialog(const std::string& username);

    /// Not empty, the same in both fields, and of characters that are allowed.
    bool passwordIsGood();
    void passwordChangedHandler();

    WLineEditPlus* passwordField;
    WLineEditPlus* confirmField;
    Wt::WPushButton* setPasswordButton;
    std::string username;

private:
    WLineEditPlus* newField(const char* labelKey);
};
