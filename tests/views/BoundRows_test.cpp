// Every bound field of every page, and every table of choices, against what the database service keeps.

#include "db/InfoMgr.h"
#include "db/InfoTables.h"
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/ValueLists.h"
#include "shell/WPrefsTable.h"
#include "tests/db/DbTest.h"
#include "tests/views/CatalogueCheck.h"
#include "views/cascade/WCascadeView.h"
#include "views/cascade/WManagedView.h"
#include "views/cascade/WSlaveSettingsView.h"
#include "views/devices/page/WDevView.h"
#include "views/peripherals/WPeriphView.h"
#include "views/settings/page/WSysSettingsView.h"
#include "views/users/WUsrView.h"
#include "widgets/Selectors.h"
#include "widgets/ValidatedFields.h"
#include "widgets/WEnableDisable.h"
#include "widgets/WFwUpdateFileSrc.h"
#include "widgets/WLineEditUInt32Zeq.h"
#include "widgets/WLineEditZeq.h"
#include "widgets/WOsdHotkeyFunc.h"
#include "widgets/WSesMode.h"
#include "widgets/WTextZeq.h"

#include <gmock/gmock.h>

namespace {

using BoundRows = DbTest;

template <class Page>
Wt::WWidget* made(Wt::WContainerWidget* parent) {
    return new Page(parent);
}

/// A line for each page: what makes it, and how many bound fields it has at least.
const struct {
    const char* name;
    Wt::WWidget* (*make)(Wt::WContainerWidget*);
    std::size_t fields;
} kPages[] = {
    {"devices", made<WDevView>, 130},       {"settings", made<WSysSettingsView>, 24},
    {"peripherals", made<WPeriphView>, 2},  {"users", made<WUsrView>, 37},
    {"preferences", made<WPrefsTable>, 10}, {"cascade", made<WCascadeView>, 12},
    {"managed", made<WManagedView>, 25},    {"slave", made<WSlaveSettingsView>, 20},
};

constexpr const char* kComputed = "frequencies are computed from the timing, in fields made for numbers";
constexpr const char* kAnyDot =
    "the pattern's dots stand for any character and are kept so; the user is told";

constexpr const char* kRepeats = "a password typed once more: it is compared with the first, and never saved";

/// Where page and service differ and shall, and in how many fields.
const struct {
    const char* fault;
    int fields;
    const char* why;
} kExceptions[] = {
    {"user/password: takes 'two words', refused (password: printable characters without blanks)", 3,
     kRepeats},
    {"user/password: takes 'é', refused (password: printable characters without blanks)", 3, kRepeats},
    {"user/password: takes 'tab\there', refused (password: printable characters without blanks)", 3,
     kRepeats},
    {"rx/inputVideoTiming/frequency: no such key", 1, kComputed},
    {"rx/outputVideoTiming/frequency: no such key", 1, kComputed},
    {"rx/monPrefVideoTiming/frequency: no such key", 1, kComputed},
    {"rx/inputVideoTiming/frameRate: no such key", 1, kComputed},
    {"rx/outputVideoTiming/frameRate: no such key", 1, kComputed},
    {"rx/monPrefVideoTiming/frameRate: no such key", 1, kComputed},
    {"swx/network/ipv6/ipAddress: takes '::1x2x3x4', refused (ipAddress: an IPv6 address)", 3, kAnyDot},
    {"swx/network/ipv6/gatewayAddress: takes '::1x2x3x4', refused (gatewayAddress: an IPv6 address)", 3,
     kAnyDot},
    {"systemGlobals/managerIpAddress: takes '::1x2x3x4', refused (managerIpAddress: an IPv4 or IPv6 address)",
     2, kAnyDot},
    {"systemGlobals/auxiliaryManagerIpAddress: takes '::1x2x3x4', refused (auxiliaryManagerIpAddress: an IPv4 or IPv6 address)",
     2, kAnyDot},
    {"systemGlobals/syslogDest: takes '::1x2x3x4', refused (syslogDest: an IPv4 or IPv6 address)", 1,
     kAnyDot},
    {"swx/primaryNtpIpAddress: takes '::1x2x3x4', refused (primaryNtpIpAddress: an address or a host name with a domain)",
     1, kAnyDot},
    {"swx/secondaryNtpIpAddress: takes '::1x2x3x4', refused (secondaryNtpIpAddress: an address or a host name with a domain)",
     1, kAnyDot},
};

TEST_F(BoundRows, FieldsAgreeWithTheService) {
    std::vector<int> seen(std::size(kExceptions));
    for (const auto& page : kPages) {
        std::size_t count = 0;
        for (const std::string& fault : catalogueFaultsIn(page.make(session.app().root()), count)) {
            std::size_t i = 0;
            while (i < std::size(kExceptions) && fault != kExceptions[i].fault) ++i;
            if (i < std::size(kExceptions))
                ++seen[i];
            else
                ADD_FAILURE() << page.name << ": " << fault;
        }
        EXPECT_GE(count, page.fields) << page.name;
    }
    for (std::size_t i = 0; i < seen.size(); ++i)
        EXPECT_EQ(seen[i], kExceptions[i].fields)
            << kExceptions[i].fault << " (" << kExceptions[i].why << ")";
}

TEST_F(BoundRows, TheCheckSeesFaults) {
    const auto faults = [](WWidgetZeq&& bound) { return catalogueFaultsOf(bound); };
    using testing::Contains;
    using testing::HasSubstr;
    EXPECT_THAT(faults(WTextZeq("rxx", "name", true)), Contains("no such resource"));
    EXPECT_THAT(faults(WTextZeq("rx", "nam", true)), Contains("no such key"));
    EXPECT_THAT(faults(WTextZeq("swx/network/ipv5", "ipAddress", true)), Contains("no such key"));
    EXPECT_THAT(faults(WIpV6Addr("swx/network/ipv4", "ipAddress", true)),
                Contains(HasSubstr("takes 'fe80::1'")));
    EXPECT_THAT(faults(WTextZeq("rx", "eid", false)), Contains("is no singleton"));
    EXPECT_THAT(faults(WTextZeq("systemGlobals", "masterSwitchEid", true)), Contains("is no table"));
    EXPECT_THAT(faults(WTextZeq("rx", "upgradePercent", true)), Contains(HasSubstr("another type")));
    EXPECT_THAT(faults(WTextZeq("rx", "reset", true)), Contains("is never shown by the service"));
    EXPECT_THAT(faults(WUsbMode("rx", "modeAllowed", true)),
                Contains(HasSubstr("offers 'all_devices', refused")));
    EXPECT_THAT(faults(WUsbMode("rx", "modeAllowed", true)), Contains(HasSubstr("shows 'share_mode' as")));
    EXPECT_THAT(faults(WUsbMode("rx", "status", true)), Contains(HasSubstr("read only")));
    EXPECT_THAT(faults(WLineEditZeq("rx", "name", true)), Contains(HasSubstr("at most 40 characters")));
    EXPECT_THAT(faults(WLineEditUInt32Zeq("rx", "sharingInactivityTimeout", true)),
                Contains(HasSubstr("takes '26', refused")));
    WLineEditZeq narrow("rx", "name", true);
    narrow.setMaxLength(39);
    EXPECT_THAT(catalogueFaultsOf(narrow), Contains(HasSubstr("does not take 'aaaa")));
}

// Choices that no bound field of a page is made of yet, and the tables of the enumerations.

std::vector<std::string_view> wordsOf(WComboBoxPlus::Choices choices) {
    std::vector<std::string_view> words;
    for (const WComboBoxPlus::Triplet& choice : choices) words.push_back(choice.dbValue);
    return words;
}

template <class E, std::size_t N>
std::vector<std::string_view> wordsOf(const EnumRow<E> (&table)[N]) {
    std::vector<std::string_view> words;
    for (const EnumRow<E>& row : table) words.push_back(row.dbValue);
    return words;
}

TEST(ServiceWords, ChoicesAndEnumerationsAreTheServices) {
    namespace values = zeqd::values;
    const struct {
        const zeqd::ValueList& list;
        std::vector<std::string_view> words;
    } rows[] = {
        {values::accessMode, wordsOf(kAccessModeChoices)},
        {values::connectionMode, wordsOf(kAutoConnModeChoices)},
        {values::connectionMode, wordsOf(kSesModeChoices)},
        {values::cascadeMode, wordsOf(kCascadeModeChoices)},
        {values::cascadeRole, wordsOf(kCascadeRoleChoices)},
        {values::enabled, wordsOf(kEnableDisableChoices)},
        {values::ipv4Method, wordsOf(kIpV4ConfigMethodChoices)},
        {values::ipv6Method, wordsOf(kIpV6ConfigMethodChoices)},
        {values::osdHotKey, wordsOf(kOsdActivateHotkeyChoices)},
        {values::osdAction, wordsOf(kOsdHotkeyFuncChoices)},
        {values::trafficPriority, wordsOf(kTrafficPriorityChoices)},
        {values::usbLogLevel, wordsOf(kUsbLogLevelChoices)},
        {values::usbMode, wordsOf(kUsbModeChoices)},
        {values::userRole, wordsOf(kUsrRoleChoices)},
        {values::protocol, wordsOf(kFwUpdateFileSrcChoices)},
        {values::deviceStatus, wordsOf(kDeviceStatusTable)},
        {values::swxStatus, wordsOf(kSwxStatusTable)},
        {values::upgradeStatus, wordsOf(kDeviceUpgradeStatusTable)},
        {values::deviceUsage, wordsOf(kDeviceUsageTable)},
        {values::swxUsage, wordsOf(kSwxUsageTable)},
        {values::accessMode, wordsOf(kAccessModeTable)},
        {values::connectionMode, wordsOf(kConnectionModeTable)},
        {values::userRole, wordsOf(kUserRoleTable)},
        {values::functionKey, wordsOf(kFunctionKeyTable)},
        {values::osdAction, wordsOf(kOsdCommonActionTable)},
    };
    for (const auto& row : rows)
        EXPECT_THAT(row.words, testing::UnorderedElementsAreArray(row.list.values)) << row.list.name;
}

TEST(ServiceWords, KindsOfChangesHaveTheServicesNumbers) {
    const struct {
        InfoMgr_InfoID ours;
        zeqd::InfoId service;
    } rows[] = {
        {InfoMgr_InfoID::Switches, zeqd::InfoId::Switch},
        {InfoMgr_InfoID::Users, zeqd::InfoId::User},
        {InfoMgr_InfoID::Receivers, zeqd::InfoId::Receiver},
        {InfoMgr_InfoID::Transmitters, zeqd::InfoId::Transmitter},
        {InfoMgr_InfoID::Edids, zeqd::InfoId::Edid},
        {InfoMgr_InfoID::Targets, zeqd::InfoId::Target},
        {InfoMgr_InfoID::UserSessions, zeqd::InfoId::UserSession},
        {InfoMgr_InfoID::AdminSessions, zeqd::InfoId::AdminSession},
        {InfoMgr_InfoID::Connections, zeqd::InfoId::Connection},
    };
    for (const auto& row : rows)
        EXPECT_EQ(static_cast<unsigned>(row.ours), static_cast<unsigned>(row.service));
}

} // namespace
