#include "views/cascade/WSlaveSettingsViewSwxModeTable.h"

#include "db/Db.h"
#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "swx", .headings = {"[RSnnn]Setting", "[RSnnn]Value"}};

/// A backup becomes a master by promotion only.
bool notOnBackup(const WWidgetZeq::Indexes&) {
    return !Db::db.thisSwxIsBackupCascadeController();
}

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Cascade Participation",
     .make = makeSettingsField<WCascadeMode>,
     .key = "mode",
     .cellStyle = kReadWriteNonTextCell,
     .editable = notOnBackup},
    {.label = "[RSnnn]Master Switch EID",
     .make = makeSettingsField<WEid>,
     .key = "masterSwitchEid",
     .resource = "systemGlobals",
     .enabledWhen = {.key = "mode", .is = "slave"},
     .emptyUnlessEnabled = true,
     .singleton = true},
    {.label = "cascade.info.table.cascadeRole",
     .make = makeSettingsField<WTextCascadeRole>,
     .key = "cascadeRole"},
};

} // namespace

WSlaveSettingsViewSwxModeTable::WSlaveSettingsViewSwxModeTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

WCascadeMode* WSlaveSettingsViewSwxModeTable::mode() const {
    return widget<WCascadeMode>("mode");
}

bool WSlaveSettingsViewSwxModeTable::saysMaster() const {
    return mode()->currentIndex() == 0;
}
