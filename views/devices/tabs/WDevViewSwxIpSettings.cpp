#include "views/devices/tabs/WDevViewSwxIpSettings.h"

#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WTextZeq.h"

namespace {

// Addresses of several Switches are shown, but not edited.
constexpr SettingsTableSpec kIpV4Spec{.resource = "swx/network/ipv4", .editable = editableAlone};
constexpr SettingsTableSpec kIpV6Spec{.resource = "swx/network/ipv6", .editable = editableAlone};

constexpr SettingsChoice kIpV4Static = {.key = "ipv4ConfMethod", .is = "static"};
constexpr SettingsChoice kIpV6Static = {.key = "ipv6ConfMethod", .is = "static"};
// On purpose, other than in IPv6: mask and gateway can always be edited.
constexpr SettingsChoice kIpV4StaticJudged = {
    .key = "ipv4ConfMethod", .is = "static", .follows = SettingsChoice::JudgedOnly};

constexpr SettingsRow kIpV4Rows[] = {
    {.label = "[RSnnn]Configuration Method",
     .make = makeSettingsField<WIpV4ConfigMethod>,
     .key = "ipv4ConfMethod",
     .tooltip = "tt.dev.swx.ipv4.configMethod"},
    {.label = "[RSnnn]IPv4 Address",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "ipAddress",
     .mandatory = true,
     .tooltip = "tt.dev.swx.ipv4.address",
     .enabledWhen = kIpV4Static},
    {.label = "[RSnnn]Subnet Mask",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "subnetMask",
     .tooltip = "tt.dev.swx.ipv4.subnetMask",
     .enabledWhen = kIpV4StaticJudged},
    {.label = "[RSnnn]Gateway Address",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "gatewayAddress",
     .tooltip = "tt.dev.swx.ipv4.gatewayAddress",
     .enabledWhen = kIpV4StaticJudged},
    {.label = "[RSnnn]Preferred DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv4PrimaryDnsServer"},
    {.label = "[RSnnn]Alternate DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv4SecondaryDnsServer"},
};

constexpr SettingsRow kIpV6Rows[] = {
    {.label = "[RSnnn]Configuration Method",
     .make = makeSettingsField<WIpV6ConfigMethod>,
     .key = "ipv6ConfMethod",
     .tooltip = "tt.dev.swx.ipv6.configMethod"},
    {.label = "[RSnnn]IPv6 Address",
     .make = makeSettingsField<WIpV6Addr>,
     .key = "ipAddress",
     .mandatory = true,
     .tooltip = "tt.dev.swx.ipv6.address",
     .enabledWhen = kIpV6Static},
    {.label = "[RSnnn]Prefix Length",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "prefixLength",
     .bottom = 1,
     .top = 128,
     .tooltip = "tt.dev.swx.ipv6.prefixLength",
     .enabledWhen = kIpV6Static},
    {.label = "[RSnnn]Gateway Address",
     .make = makeSettingsField<WIpV6Addr>,
     .key = "gatewayAddress",
     .tooltip = "tt.dev.swx.ipv6.gatewayAddress",
     .enabledWhen = kIpV6Static},
    {.label = "[RSnnn]Preferred DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv6PrimaryDnsServer"},
    {.label = "[RSnnn]Alternate DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv6SecondaryDnsServer"},
};

} // namespace

WDevViewSwxIpV4SettingsTable::WDevViewSwxIpV4SettingsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kIpV4Spec, kIpV4Rows, parent) {}

WDevViewSwxIpV4Settings::WDevViewSwxIpV4Settings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_IPV4, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxIpV4SettingsTable});
}

WDevViewSwxIpV6SettingsTable::WDevViewSwxIpV6SettingsTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kIpV6Spec, kIpV6Rows, parent) {}

WDevViewSwxIpV6Settings::WDevViewSwxIpV6Settings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_IPV6, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxIpV6SettingsTable});
}
