#include "views/users/tabs/WUsrViewPermissions.h"

#include "widgets/Selectors.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "user", .width = 257};

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Role",
     .make = makeSettingsField<WUsrRole>,
     .key = "role",
     .tooltip = "tt.usr.perm.role"},
    {.label = "[RSnnn]Access Mode",
     .make = makeSettingsField<WAccessMode>,
     .key = "modeAllowed",
     .tooltip = "tt.usr.perm.accessMode"},
    {.label = "[RSnnn]USB Mode",
     .make = makeSettingsField<WUsbMode>,
     .key = "usbMode",
     .tooltip = "tt.usr.perm.usbMode"},
};

constexpr int kAdmin = 1;           // item of the role
constexpr int kPrivateOrShared = 2; // item of the access mode

} // namespace

WUsrViewPermissionsTable::WUsrViewPermissionsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {
    widget<WUsrRole>("role")->changed().connect(this, &WUsrViewPermissionsTable::userRoleChangedHandler);
}

void WUsrViewPermissionsTable::userRoleChangedHandler() {
    if (widget<WUsrRole>("role")->currentIndex() != kAdmin) return;
    auto* mode = widget<WAccessMode>("modeAllowed");
    mode->setCurrentIndex(kPrivateOrShared);
    mode->contentChangedHandler();
}

WUsrViewPermissions::WUsrViewPermissions(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_USR_PERMISSIONS, {InfoMgr_InfoID::Users}) {
    setTables({new WUsrViewPermissionsTable});
}
