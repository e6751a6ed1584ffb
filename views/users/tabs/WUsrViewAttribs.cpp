#include "views/users/tabs/WUsrViewAttribs.h"

#include "widgets/WChangePassword.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WPasswordField.h"

namespace {

constexpr int kPasswordPx = 200;
constexpr int kChangePx = 207;
constexpr int kChange = 1; // item of the box: the password is changed along with the rest

constexpr SettingsTableSpec kSpec{.resource = "user", .headings = {"[RSnnn]Attribute", "[RSnnn]Value"}};

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Username",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "name",
     .maxLength = 20,
     .pattern = "^([A-Za-z0-9]*)$",
     .mandatory = true,
     .tooltip = "tt.usr.attr.name",
     .editable = editableAlone},
    {.label = "[RSnnn]Full Name",
     .make = makeSettingsField<WLineEditZeq>,
     .key = "fullName",
     .maxLength = 40,
     .pattern = "^([ -~]*)$",
     .tooltip = "tt.usr.attr.fullName"},
    {.label = "[RSnnn]Allow Blank Password",
     .make = makeSettingsField<WEnableDisable>,
     .key = "allowBlankPassword",
     .tooltip = "tt.usr.attr.allowBlankPassword"},
    {.label = "[RSnnn]Allow OSD Password Change",
     .make = makeSettingsField<WEnableDisable>,
     .key = "allowPasswordChange",
     .tooltip = "tt.usr.attr.allowOsdPasswordChange"},
    {.label = "[RSnnn]Change Password",
     .make = makeSettingsField<WChangePassword>,
     .key = "change",
     .tooltip = "tt.usr.attr.changePassword",
     .width = kChangePx,
     .editable = editableAlone},
    {.label = "[RSnnn]Password",
     .make = makePasswordField,
     .key = "password",
     .maxLength = 20,
     .pattern = "^([!-~]*)$",
     .tooltip = "tt.usr.attr.password",
     .width = kPasswordPx,
     .enabledWhen = {.key = "change", .item = kChange},
     .neededWhen = {.key = "allowBlankPassword", .is = "enabled", .unless = true},
     .editable = editableAlone},
    {.label = "[RSnnn]Confirm Password",
     .make = makePasswordField,
     .key = "password",
     .maxLength = 20,
     .tooltip = "tt.usr.attr.confirmPassword",
     .width = kPasswordPx,
     .repeats = "password"},
    {.label = "[RSnnn]Account Status",
     .make = makeSettingsField<WEnableDisable>,
     .key = "accountEnable",
     .tooltip = "tt.usr.attr.accountStatus"},
};

} // namespace

WUsrViewAttribsTable::WUsrViewAttribsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WUsrViewAttribsTable::readFromDatabase(const Indexes& indexes, bool force) {
    if (force || !tableChanged()) {
        widget<WChangePassword>("change")->setCurrentIndex(0);
        dropUnusedPassword();
    }
    WSettingsTable::readFromDatabase(indexes, force);
}

void WUsrViewAttribsTable::dropUnusedPassword() {
    if (passwordIsChanged()) return;
    // Behind the row of that key stands the one that repeats it.
    for (const std::size_t row : {5u, 6u}) widgetAt<WPasswordField>(row)->field().setText("");
}

unsigned WUsrViewAttribsTable::writeToDatabase(const Indexes& indexes, Errors& errors) {
    // What is not valid would be left out without a word.
    const bool invalid = !isValid("fullName") || (passwordIsChanged() && !WSettingsTable::isAllValid());
    if (invalid) return 1;
    // An empty password is a password, though the field never was touched.
    if (passwordIsChanged()) widgetAt<WPasswordField>(5)->field().contentChangedHandler();
    return WSettingsTable::writeToDatabase(indexes, errors);
}

bool WUsrViewAttribsTable::passwordIsChanged() const {
    const auto* change = widget<WChangePassword>("change");
    return !change->isDisabled() && change->currentIndex() == kChange;
}

bool WUsrViewAttribsTable::isValid(const char* key) const {
    return widget<WLineEditZeq>(key)->validate() == Wt::WValidator::Valid;
}

bool WUsrViewAttribsTable::isAllValid() {
    if (!isValid("name")) return false;
    // On purpose: a full name that is not valid keeps Save disabled only along with a new password.
    return !passwordIsChanged() || WSettingsTable::isAllValid();
}

bool WUsrViewAttribsTable::isAnyValid() {
    return isValid("name") || isValid("fullName") || (passwordIsChanged() && WSettingsTable::isAllValid());
}

void WUsrViewAttribsTable::beginNewUser() {
    for (const char* key : {"allowBlankPassword", "allowPasswordChange"}) {
        auto* box = widget<WEnableDisable>(key);
        box->setCurrentIndex(1);
        box->contentChangedHandler();
    }
    widget<WChangePassword>("change")->setCurrentIndex(kChange);
    auto* name = widget<WLineEditZeq>("name");
    name->setText("");
    name->contentChangedHandler();
    name->setFocus();
    followChoices();
}

WUsrViewAttribs::WUsrViewAttribs(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_USR_ATTRIBS, {InfoMgr_InfoID::Users}),
      mTable(new WUsrViewAttribsTable) {
    setTables({mTable});
}
