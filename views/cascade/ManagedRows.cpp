#include "views/cascade/ManagedRows.h"

#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WManagementMode.h"
#include "widgets/WMgrCommStatus.h"
#include "widgets/WSwxCombinedMode.h"

namespace {

constexpr const char* kReadOnlyLineEdit = "mirl-attribute-table-read-only-line-edit";
constexpr int kTopPort = 65535;

/// Where a row may be: on this place of the Switch.
using Where = bool (*)(const SwxPlace&);
bool everywhere(const SwxPlace&) {
    return true;
}
bool onMaster(const SwxPlace& place) {
    return place.master;
}
bool notOnController(const SwxPlace& place) {
    return !place.controller;
}
/// A controller is its own master, and a backup follows the controller it stands by for.
bool onPlainSlave(const SwxPlace& place) {
    return !place.controller && !place.backup;
}
/// A backup takes them over from the controller.
bool notOnBackup(const SwxPlace& place) {
    return !place.backup;
}

struct ManagedRow {
    SettingsRow row;
    Where shown;
    Where editable;
};

constexpr SettingsRow port(const char* label, const char* key) {
    return {.label = label, .make = makeSettingsField<WLineEditUInt32Zeq>, .key = key, .top = kTopPort};
}

constexpr ManagedRow kRows[] = {
    // How far enrolment is, and the way out of management that every Switch has.
    {{.label = "managed.enrolment", .make = makeSettingsField<WManagementMode>, .key = "managedSetting"},
     everywhere,
     everywhere},
    {{.label = "[RSnnn]Mode",
      .make = makeSettingsField<WSwxCombinedMode>,
      .key = kCombinedModeRow,
      .byOwner = true},
     notOnController,
     onMaster},
    {port("[RSnnn]Switch API Server TCP Port", "switchApiPort"), notOnController, everywhere},
    {port("[RSnnn]Switch API Client TCP Port", "managerApiPort"), notOnController, everywhere},
    {{.label = "[RSnnn]Master Switch EID", .make = makeSettingsField<WEid>, .key = "masterSwitchEid"},
     everywhere,
     onPlainSlave},
    {{.label = "[RSnnn]Primary Manager IP Address",
      .make = makeSettingsField<WIpAddr>,
      .key = "managerIpAddress"},
     everywhere,
     notOnBackup},
    {{.label = "[RSnnn]Auxiliary Manager IP Address",
      .make = makeSettingsField<WIpAddr>,
      .key = "auxiliaryManagerIpAddress"},
     everywhere,
     notOnBackup},
    {{.label = "[RSnnn]Primary Manager Communication",
      .make = makeSettingsField<WMgrCommStatus, WMgrCommStatus::MgrInstance::Primary>},
     everywhere,
     everywhere},
    {{.label = "[RSnnn]Auxiliary Manager Communication",
      .make = makeSettingsField<WMgrCommStatus, WMgrCommStatus::MgrInstance::Auxiliary>},
     everywhere,
     everywhere},
    {{.label = "managed.preferred.manager",
      .make = makeSettingsField<WTextManagerServer>,
      .key = "preferredManager"},
     everywhere,
     everywhere},
    {{.label = "managed.current.manager",
      .make = makeSettingsField<WTextManagerServer>,
      .key = "currentManager"},
     everywhere,
     everywhere},
};

} // namespace

std::vector<SettingsRow> managedRows(const SwxPlace& place) {
    std::vector<SettingsRow> rows;
    for (const ManagedRow& managed : kRows) {
        if (!managed.shown(place)) continue;
        rows.push_back(managed.row);
        if (managed.editable(place)) continue;
        rows.back().editable = neverEditable;
        if (managed.row.key == kCombinedModeRow) continue; // a box, not a line
        rows.back().cellStyle = kReadOnlyCell;
        rows.back().style = kReadOnlyLineEdit;
    }
    return rows;
}
