#include "views/devices/tabs/WDevViewSwxNtp.h"

#include "views/devices/tabs/SwxConflict.h"
#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WNtpTime.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "swx", .headings = {"[RSnnn]Item", "[RSnnn]Value"}};

constexpr const char* kStatusKey = "ntpStatus";

// The addresses look like the combo box above them.
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]NTP",
     .make = makeSettingsField<WEnableDisable>,
     .key = "ntpEnable",
     .tooltip = "tt.dev.swx.ntp.enable",
     .editable = noSwxInConflict},
    {.label = "[RSnnn]Primary NTP Server IP Address",
     .make = makeSettingsField<WHostAddr>,
     .key = "primaryNtpIpAddress",
     .tooltip = "tt.dev.swx.ntp.primaryAddress",
     .style = kComboBoxStyle,
     .enabledWhen = {.key = "ntpEnable", .is = "enabled"}},
    // On purpose: this one follows the choice at the next read only, and has no say over several Switches.
    {.label = "[RSnnn]Secondary NTP Server IP Address",
     .make = makeSettingsField<WHostAddr>,
     .key = "secondaryNtpIpAddress",
     .tooltip = "tt.dev.swx.ntp.secondaryAddress",
     .style = kComboBoxStyle,
     .enabledWhen = {.key = "ntpEnable", .is = "enabled", .follows = SettingsChoice::AtNextRead},
     .judgedForSeveral = false},
    {.label = "[RSnnn]NTP Status",
     .make = makeSettingsField<WNtpStatus>,
     .key = kStatusKey,
     .editable = neverEditable},
    {.label = "[RSnnn]Time",
     .make = makeSettingsField<WNtpTime>,
     .key = "currentSysTime",
     .editable = neverEditable},
};

} // namespace

WDevViewSwxNtpTable::WDevViewSwxNtpTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WDevViewSwxNtpTable::clearStatus() {
    widget<WNtpStatus>(kStatusKey)->setText("");
}

void WDevViewSwxNtpTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    if (!widget<WEnableDisable>("ntpEnable")->isChosenEnabled())
        widget<WNtpStatus>(kStatusKey)->setText(tr("[RSnnn]Inactive"));
}

WDevViewSwxNtp::WDevViewSwxNtp(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_NTP, {InfoMgr_InfoID::Switches}),
      mTable(new WDevViewSwxNtpTable) {
    setTables({mTable});
}
