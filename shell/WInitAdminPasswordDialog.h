#pragma once

#include <Wt/WDialog>

#include <string>

namespace Wt {
class WPushButton;
class WTable;
} // namespace Wt

class WLineEditPlus;

/// Asks an administrator who has no password yet for the first one, twice. The session connects the button.
class WInitAdminPasswordDialog : public Wt::WDialog {
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
    WLineEditPlus* addField(Wt::WTable& table, int row, const Wt::WString& label);
};
