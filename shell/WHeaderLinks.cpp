#include "shell/WHeaderLinks.h"

#include "db/Db.h"
#include "frame/Confirm.h"
#include "platform/client/Attributes.h"
#include "shell/MirlApplication.h"
#include "shell/WPrefs.h"

#include <Wt/WAnchor>
#include <Wt/WTableCell>

namespace {

constexpr int kSpacingPx = 7;

constexpr Confirmation kConfirmLogout = {
    .flag = "enableLogoutUnsavedChangesWarning",
    .title = "[RSnnn]Warning",
    .message = "[RSnnn]There are unsaved changes. Are you sure you want to discard your changes and log out?",
    .proceed = "[RSnnn]Discard changes"};

/// The Switch owner's own help pages; without them the maker's, on the host that the attribute store names.
std::string helpLink() {
    std::string link;
    std::vector<std::string> errors;
    if (Db::db.readString("systemGlobals", 0, "mirlCustomHelpLink", link, errors) == 0 && !link.empty())
        return link;
    return std::string("http://") + Attributes_getString("help.host", "help.orvane.example") +
           "/us/olh/orvane/v_1.0.0/en/index.html";
}

} // namespace

WHeaderLinks::WHeaderLinks(Wt::WContainerWidget* parent) : Wt::WTable(parent) {
    auto* help = newLink("mirl-help-button", tr("[RSnnn]Help"));
    help->setTarget(Wt::TargetNewWindow);
    elementAt(0, 0)->addWidget(help);

    auto* preferences = newLink("mirl-preferences-button", tr("[RSnnn]Preferences"));
    preferences->clicked().connect(this, &WHeaderLinks::preferencesClickedHandler);
    if (Db::db.thisSwxIsMaster() && !Db::db.thisSwxIsManaged()) {
        elementAt(0, 1)->addWidget(preferences);
    } else {
        delete preferences;
    }

    auto* logout = newLink("mirl-logout-button", tr("[RSnnn]Log out"));
    logout->clicked().connect(this, &WHeaderLinks::logoutClickedHandler);
    elementAt(0, 2)->addWidget(logout);
    for (int column = 0; column < columnCount(); ++column)
        elementAt(0, column)->setPadding(kSpacingPx, Wt::Left);
    help->setLink(Wt::WLink(helpLink()));
}

Wt::WAnchor* WHeaderLinks::newLink(const char* styleClass, const Wt::WString& text) {
    auto* link = new Wt::WAnchor;
    link->setStyleClass(styleClass);
    link->setText(text);
    return link;
}

void WHeaderLinks::preferencesClickedHandler() {
    WPrefs prefs;
    prefs.exec();
}

void WHeaderLinks::logoutClickedHandler() {
    MirlApplication* application = MirlApplication::current();
    if (!application || (application->anythingChanged() && !confirm(kConfirmLogout))) return;
    application->discardChanges();
    application->logOutUser();
}
