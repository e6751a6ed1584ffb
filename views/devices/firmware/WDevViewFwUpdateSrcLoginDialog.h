#pragma once

#include <Wt/WDialog>

#include <string>

namespace Wt {
class WLineEdit;
class WTable;
} // namespace Wt

/// Asks for the login that a firmware file is fetched with. Run with exec().
class WDevViewFwUpdateSrcLoginDialog : public Wt::WDialog {
public:
    enum Button { None, Close, Proceed };

    explicit WDevViewFwUpdateSrcLoginDialog(const std::string& username);

    Button buttonClicked() const { return mButtonClicked; }
    std::string username() const;
    std::string password() const;

    void proceedButtonClickedHandler();
    void closeButtonClickedHandler();

private:
    Wt::WLineEdit* addField(int row, const Wt::WString& label);

    Wt::WTable* mTable;
    Wt::WLineEdit* mUsername;
    Wt::WLineEdit* mPassword;
    Button mButtonClicked = None;
};
