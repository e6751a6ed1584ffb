#pragma once

#include "frame/DialogForm.h"

#include <string>

/// Asks for the login that a firmware file is fetched with. Run with exec().
class WDevViewFwUpdateSrcLoginDialog : public DialogForm {
public:
    enum Button { None, Close, Proceed };

    explicit WDevViewFwUpdateSrcLoginDialog(const std::string& username);

    std::string username() const;
    std::string password() const;

private:
    Wt::WLineEdit* mUsername;
    Wt::WLineEdit* mPassword;
};
