#include "views/devices/tabs/WDevViewSwxIpSettings.h"

#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WTextZeq.h"

namespace {

constexpr int kStaticItem = 3; // of both configuration methods

constexpr SettingsTableSpec kIpV4Spec{.resource = "swx", .path = {"network", "ipv4"}};
constexpr SettingsTableSpec kIpV6Spec{.resource = "swx", .path = {"network", "ipv6"}};

constexpr SettingsRow kIpV4Rows[] = {
    {.label = "[RSnnn]Configuration Method",
     .make = makeSettingsField<WIpV4ConfigMethod>,
     .key = "ipv4ConfMethod",
     .resource = "swx/network/ipv4",
     .tooltip = "tt.dev.swx.ipv4.configMethod"},
    {.label = "[RSnnn]IPv4 Address",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "ipAddress",
     .resource = "swx/network/ipv4",
     .tooltip = "tt.dev.swx.ipv4.address"},
    {.label = "[RSnnn]Subnet Mask",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "subnetMask",
     .resource = "swx/network/ipv4",
     .tooltip = "tt.dev.swx.ipv4.subnetMask"},
    {.label = "[RSnnn]Gateway Address",
     .make = makeSettingsField<WIpV4Addr>,
     .key = "gatewayAddress",
     .resource = "swx/network/ipv4",
     .tooltip = "tt.dev.swx.ipv4.gatewayAddress"},
    {.label = "[RSnnn]Preferred DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv4PrimaryDnsServer",
     .resource = "swx/network/ipv4"},
    {.label = "[RSnnn]Alternate DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv4SecondaryDnsServer",
     .resource = "swx/network/ipv4"},
};

constexpr SettingsRow kIpV6Rows[] = {
    {.label = "[RSnnn]Configuration Method",
     .make = makeSettingsField<WIpV6ConfigMethod>,
     .key = "ipv6ConfMethod",
     .resource = "swx/network/ipv6",
     .tooltip = "tt.dev.swx.ipv6.configMethod"},
    {.label = "[RSnnn]IPv6 Address",
     .make = makeSettingsField<WIpV6Addr>,
     .key = "ipAddress",
     .resource = "swx/network/ipv6",
     .tooltip = "tt.dev.swx.ipv6.address"},
    {.label = "[RSnnn]Prefix Length",
     .make = makeSettingsField<WLineEditUInt32Zeq>,
     .key = "prefixLength",
     .resource = "swx/network/ipv6",
     .bottom = 1,
     .top = 128,
     .tooltip = "tt.dev.swx.ipv6.prefixLength"},
    {.label = "[RSnnn]Gateway Address",
     .make = makeSettingsField<WIpV6Addr>,
     .key = "gatewayAddress",
     .resource = "swx/network/ipv6",
     .tooltip = "tt.dev.swx.ipv6.gatewayAddress"},
    {.label = "[RSnnn]Preferred DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv6PrimaryDnsServer",
     .resource = "swx/network/ipv6"},
    {.label = "[RSnnn]Alternate DNS Server",
     .make = makeSettingsField<WTextZeq>,
     .key = "ipv6SecondaryDnsServer",
     .resource = "swx/network/ipv6"},
};

// The two families differ here on purpose: mask and gateway of IPv4 can always be edited.
constexpr SwxIpSettingsTable::Row kIpV4Followers[] = {SwxIpSettingsTable::Address};
constexpr SwxIpSettingsTable::Row kIpV6Followers[] = {
    SwxIpSettingsTable::Address, SwxIpSettingsTable::MaskOrPrefix, SwxIpSettingsTable::Gateway};

} // namespace

SwxIpSettingsTable::SwxIpSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                                       std::span<const Row> followers, Wt::WContainerWidget* parent)
    : WSettingsTable(spec, rows, parent), mFamily(spec.path[1]), mFollowers(followers) {
    field(Address).form->validator()->setMandatory(true);
    field(Method).form->changed().connect(this, &SwxIpSettingsTable::configMethodSelectionChangedHandler);
}

bool SwxIpSettingsTable::isStatic() const {
    return widget<Wt::WComboBox>(Method)->currentIndex() == kStaticItem;
}

void SwxIpSettingsTable::configMethodSelectionChangedHandler() {
    for (const Row row : mFollowers) setRowEnabled(row, isStatic());
}

void SwxIpSettingsTable::readFromDatabase(const Indexes& indexes, bool force) {
    if (indexes.empty()) return;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "swx", __func__);
    if (!exchange.ready()) return;
    for (const unsigned index : indexes) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", index);
    ZeqReqUtil_setSelect(exchange.request(), "index");
    ZeqReqUtil_setSelect(exchange.request(), "network");
    if (exchange.sendQuietly() != 0) return;
    const ZeqPtr network(ZeqObj_collapse(exchange.response(), "index", "network"));
    if (!network) return;
    const ZeqPtr family(ZeqObj_collapse(network.get(), "index", mFamily));
    if (!family) return;
    getZeqParams(family.get(), indexes, force);

    const bool one = indexes.size() == 1;
    for (const Row row : {Method, Address, MaskOrPrefix, Gateway, PrimaryDns, SecondaryDns})
        setRowEnabled(row, one);
    if (one) configMethodSelectionChangedHandler();
}

bool SwxIpSettingsTable::isRowValid(Row row) const {
    return field(row).form->validate() == Wt::WValidator::Valid;
}

bool SwxIpSettingsTable::isAllValid() {
    return !isStatic() || (isRowValid(Address) && isRowValid(MaskOrPrefix) && isRowValid(Gateway));
}

bool SwxIpSettingsTable::isAnyValid() {
    return !isStatic() || isRowValid(Address) || isRowValid(MaskOrPrefix) || isRowValid(Gateway);
}

WDevViewSwxIpV4SettingsTable::WDevViewSwxIpV4SettingsTable(Wt::WContainerWidget* parent)
    : SwxIpSettingsTable(kIpV4Spec, kIpV4Rows, kIpV4Followers, parent) {}

WDevViewSwxIpV4Settings::WDevViewSwxIpV4Settings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_IPV4, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxIpV4SettingsTable});
}

WDevViewSwxIpV6SettingsTable::WDevViewSwxIpV6SettingsTable(Wt::WContainerWidget* parent)
    : SwxIpSettingsTable(kIpV6Spec, kIpV6Rows, kIpV6Followers, parent) {}

WDevViewSwxIpV6Settings::WDevViewSwxIpV6Settings(Wt::WContainerWidget* parent)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_SWX_IPV6, {InfoMgr_InfoID::Switches}) {
    setTables({new WDevViewSwxIpV6SettingsTable});
}
