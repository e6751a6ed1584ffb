#include "views/devices/tabs/WDevViewStatus.h"

#include "widgets/LookupTexts.h"
#include "widgets/WTextZeq.h"

namespace {

constexpr SettingsTableSpec specOf(const char* resource) {
    return {.resource = resource, .headings = {"[RSnnn]Attribute", "[RSnnn]Value"}};
}

constexpr SettingsTableSpec kRxSpec = specOf("rx");
constexpr SettingsTableSpec kTxSpec = specOf("tx");
constexpr SettingsTableSpec kSwxSpec = specOf("swx");

constexpr SettingsRow kEid = {.label = "[RSnnn]EID", .make = makeSettingsField<WTextZeq>, .key = "eid"};
constexpr SettingsRow kSerialNumber = {
    .label = "[RSnnn]Serial Number", .make = makeSettingsField<WTextZeq>, .key = "serialNumber"};
constexpr SettingsRow kPartNumber = {
    .label = "[RSnnn]Part Number", .make = makeSettingsField<WTextZeq>, .key = "partNumber"};
constexpr SettingsRow kFirmware = {
    .label = "[RSnnn]Firmware", .make = makeSettingsField<WTextZeq>, .key = "firmwareVersion"};

constexpr SettingsRow kRxRows[] = {
    kEid,
    kSerialNumber,
    kPartNumber,
    {.label = "[RSnnn]Status", .make = makeSettingsField<WTextRxStatus>},
    {.label = "[RSnnn]Keyboard Layout", .make = makeSettingsField<WTextRxKeyboardLayout>},
    {.label = "[RSnnn]Logged in username", .make = makeSettingsField<WTextRxUsrName>},
    {.label = "[RSnnn]Mode", .make = makeSettingsField<WTextRxSesMode>},
    {.label = "[RSnnn]Logged in Duration", .make = makeSettingsField<WTextRxLoginDuration>},
    {.label = "[RSnnn]Session Duration", .make = makeSettingsField<WTextRxSesDuration>},
    kFirmware,
    {.label = "[RSnnn]Attached Switch", .make = makeSettingsField<WTextRxSwxName>},
    {.label = "[RSnnn]Switch Port", .make = makeSettingsField<WTextRxSwxPort>},
};

constexpr SettingsRow kTxRows[] = {
    kEid,
    kSerialNumber,
    kPartNumber,
    {.label = "[RSnnn]Status", .make = makeSettingsField<WTextTxStatus>},
    {.label = "[RSnnn]Mode", .make = makeSettingsField<WTextTxSesMode>},
    kFirmware,
    {.label = "[RSnnn]Attached Switch", .make = makeSettingsField<WTextTxSwxName>},
    {.label = "[RSnnn]Switch Port", .make = makeSettingsField<WTextTxSwxPort>},
};

constexpr SettingsRow kSwxRows[] = {
    kEid,        kSerialNumber,
    kPartNumber, {.label = "[RSnnn]Status", .make = makeSettingsField<WTextSwxStatus>},
    kFirmware,
};

} // namespace

WDevViewRxStatusTable::WDevViewRxStatusTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kRxSpec, kRxRows, parent) {}

WDevViewTxStatusTable::WDevViewTxStatusTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kTxSpec, kTxRows, parent) {}

WDevViewSwxStatusTable::WDevViewSwxStatusTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSwxSpec, kSwxRows, parent) {}
