#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Role, and how a user may connect.
class WUsrViewPermissionsTable : public WSettingsTable {
public:
    explicit WUsrViewPermissionsTable(Wt::WContainerWidget* parent = nullptr);

    /// An administrator may connect in private mode: the choice is made along with the role, before it is saved.
    virtual void userRoleChangedHandler();
};

class WUsrViewPermissions : public WSettingsTab {
public:
    explicit WUsrViewPermissions(Wt::WContainerWidget* parent = nullptr);
};
