#include "views/devices/tabs/WDevViewSwxNtp.h"

#include "views/devices/tabs/SwxConflict.h"
#include "widgets/ValidatedFields.h"
#include "widgets/ValueTexts.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WNtpTime.h"

namespace {

// A refusal is logged; only a lost connection is told to the user.
constexpr SettingsTableSpec kSpec{
    .resource = "swx", .headings = {"[RSnnn]Item", "[RSnnn]Value"}, .refusalFails = false};

enum Row { kControl, kPrimary, kSecondary, kStatus, kTime };

// The addresses look like the combo box above them.
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]NTP",
     .make = makeSettingsField<WEnableDisable>,
     .key = "ntpEnable",
     .tooltip = "tt.dev.swx.ntp.enable"},
    {.label = "[RSnnn]Primary NTP Server IP Address",
     .make = makeSettingsField<WHostAddr>,
     .key = "primaryNtpIpAddress",
     .tooltip = "tt.dev.swx.ntp.primaryAddress",
     .style = kComboBoxStyle},
    {.label = "[RSnnn]Secondary NTP Server IP Address",
     .make = makeSettingsField<WHostAddr>,
     .key = "secondaryNtpIpAddress",
     .tooltip = "tt.dev.swx.ntp.secondaryAddress",
     .style = kComboBoxStyle},
    {.label = "[RSnnn]NTP Status", .make = makeSettingsField<WNtpStatus>, .key = "ntpStatus"},
    {.label = "[RSnnn]Time", .make = makeSettingsField<WNtpTime>, .key = "currentSysTime"},
};

} // namespace

WDevViewSwxNtpTable::WDevViewSwxNtpTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {
    widget<WEnableDisable>(kControl)->changed().connect(
        this, &WDevViewSwxNtpTable::ntpControlSelectionChangedHandler);
}

void WDevViewSwxNtpTable::ntpControlSelectionChangedHandler() {
    setRowEnabled(kPrimary, widget<WEnableDisable>(kControl)->isChosenEnabled());
}

void WDevViewSwxNtpTable::clearStatus() {
    widget<WNtpStatus>(kStatus)->setText("");
}

void WDevViewSwxNtpTable::readFromDatabase(const Indexes& indexes, bool force) {
    WSettingsTable::readFromDatabase(indexes, force);
    setRowEnabled(kControl, !anySwxInConflict(indexes));
    const bool on = widget<WEnableDisable>(kControl)->currentIndex() == 0;
    setRowEnabled(kPrimary, on);
    setRowEnabled(kSecondary, on);
    if (!on) widget<WNtpStatus>(kStatus)->setText(tr("[RSnnn]Inactive"));
    setRowEnabled(kStatus, false);
    setRowEnabled(kTime, false);
}

bool WDevViewSwxNtpTable::isAllValid() {
    return widget<WEnableDisable>(kControl)->isChosenDisabled() ||
           (widget<WHostAddr>(kPrimary)->isValid() && widget<WHostAddr>(kSecondary)->isValid());
}

bool WDevViewSwxNtpTable::isAnyValid() {
    return widget<WEnableDisable>(kControl)->isChosenDisabled() || widget<WHostAddr>(kPrimary)->isValid();
}

WDevViewSwxNtp::WDevViewSwxNtp(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_NTP, {InfoMgr_InfoID::Switches}),
      mTable(new WDevViewSwxNtpTable) {
    setTables({mTable});
}
