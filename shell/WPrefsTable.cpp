#include "shell/WPrefsTable.h"

#include "widgets/WEnableDisable.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "user",
                                  .headings = {"[RSnnn]Option", "[RSnnn]Setting"},
                                  .save = SettingsTableSpec::Save::OneExchangePerField};

constexpr SettingsRow warning(const char* label, const char* key) {
    return {.label = label,
            .make = makeSettingsField<WEnableDisable>,
            .key = key,
            .cellStyle = kReadWriteCell,
            .style = kLineEditStyle};
}

constexpr SettingsRow kRows[] = {
    warning("[RSnnn]Warn When Logging out with Unsaved Changes", "enableLogoutUnsavedChangesWarning"),
    warning("[RSnnn]Warn When Deleting User", "enableDeleteUserWarning"),
    warning("[RSnnn]Warn When Forcing a User Logout", "enableLogoutUserWarning"),
    warning("[RSnnn]Warn When Disconnecting a Session", "enableDisconnectSessionWarning"),
    warning("[RSnnn]Warn When Deleting Monitor", "enableDeleteMonitorWarning"),
    warning("[RSnnn]Warn When Clearing Event History", "enableClearEventHistoryWarning"),
    warning("[RSnnn]Warn When Restoring Device Factory Defaults", "enableRestoreFactoryDefaultsWarning"),
    warning("[RSnnn]Warn When Removing Device(s)", "enableRemoveDevicesWarning"),
    warning("[RSnnn]Warn When Removing Offline Device(s)", "enableRemoveOfflineDevicesWarning"),
    warning("[RSnnn]Warn When Rebooting Device(s)", "enableResetDevicesWarning"),
};

} // namespace

WPrefsTable::WPrefsTable(Wt::WContainerWidget* parent) : WSettingsTable(kSpec, kRows, parent) {}
