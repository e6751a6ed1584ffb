#include "views/cascade/WCascadeViewInfoTable.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/ThisSwx.h"
#include "views/cascade/NamedSwx.h"
#include "widgets/LookupTexts.h"
#include "widgets/ValueTexts.h"
#include "widgets/WAnchorZeq.h"
#include "widgets/WTextZeq.h"

namespace {

enum Group : unsigned { kMaster = 1, kPeer = 2 };

constexpr SettingsTableSpec kSpec{
    .resource = "swx", .headings = {"[RSnnn]Item", "[RSnnn]Value"}, .cellStyle = kReadOnlyCell};

constexpr SettingsRow heading(const char* label) {
    return {.label = label};
}
constexpr SettingsRow row(Group group, const char* label, SettingsFieldMaker make, const char* key,
                          const char* resource = nullptr) {
    return {.label = label, .make = make, .key = key, .resource = resource, .group = group};
}
constexpr SettingsRow address(Group group, const char* label, const char* resource) {
    SettingsRow made = row(group, label, makeSettingsField<WAnchorZeq>, "ipAddress", resource);
    made.style = "mirl-link";
    return made;
}

constexpr SettingsRow kRows[] = {
    heading("cascade.info.table.masterSwitch"),
    row(kMaster, "cascade.info.table.name", makeSettingsField<WTextZeq>, "name"),
    row(kMaster, "cascade.info.table.EID", makeSettingsField<WTextZeq>, "eid"),
    row(kMaster, "cascade.info.table.status", makeSettingsField<WTextSwxStatus>, ""),
    address(kMaster, "cascade.info.table.ipv4", "swx/network/ipv4"),
    address(kMaster, "cascade.info.table.ipv6", "swx/network/ipv6"),
    row(kMaster, "cascade.info.table.cascadeMode", makeSettingsField<WTextCascadeMode>, "mode"),
    row(kMaster, "cascade.info.table.cascadeRole", makeSettingsField<WTextCascadeRole>, "cascadeRole"),
    heading(""),
    heading("cascade.info.table.peerSwitch"),
    row(kPeer, "cascade.info.table.name", makeSettingsField<WTextZeq>, "name"),
    row(kPeer, "cascade.info.table.EID", makeSettingsField<WTextZeq>, "eid"),
    row(kPeer, "cascade.info.table.status", makeSettingsField<WTextSwxStatus>, ""),
    address(kPeer, "cascade.info.table.ipv4", "swx/network/ipv4"),
    address(kPeer, "cascade.info.table.ipv6", "swx/network/ipv6"),
    row(kPeer, "cascade.info.table.cascadeMode", makeSettingsField<WTextCascadeMode>, "mode"),
    row(kPeer, "cascade.info.table.cascadeRole", makeSettingsField<WTextCascadeRole>, "cascadeRole"),
};

} // namespace

WCascadeViewInfoTable::WCascadeViewInfoTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WCascadeViewInfoTable::readFromDatabase(const Indexes& /*chosen*/, bool force) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    const std::optional<unsigned> master = namedSwx("masterSwitchEid");
    if (!master || *master == 0) return;
    mRolesSwitched = *master != kThisSwxIndex;
    const unsigned peer = namedSwx("peerControllerSwitchEid").value_or(0);
    mPeer = peer == 0 ? Indexes{} : Indexes{peer};
    WSettingsTable::readFromDatabase({*master}, force);
}

WSettingsTable::Indexes WCascadeViewInfoTable::recordsOf(unsigned group, const Indexes& chosen) {
    return group == kPeer ? mPeer : chosen;
}
