#pragma once

#include <Wt/WDialog>

#include <string>

namespace Wt {
class WPushButton;
}

/// The owner's notice before the login. The session connects the button.
class WBannerDialog : public Wt::WDialog {
public:
    /// text: UTF-8, shown as it stands; markup in it stays text.
    explicit WBannerDialog(const std::string& text);

    Wt::WPushButton* proceedButton;
};
