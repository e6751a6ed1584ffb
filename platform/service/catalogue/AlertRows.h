// The switches of "alertLogControl": which events raise an alert.
#pragma once

#include "platform/service/catalogue/ValueLists.h"

namespace zeqd::rows {

constexpr KeyRow alertSwitch(std::string_view key, std::string_view help) {
    return choice(key, values::enabled, help).def("enabled");
}

inline constexpr KeyRow kAlertLogControl[] = {
    alertSwitch("enableAlertSwitchPortsSelfConnected", "two ports of one Switch are joined"),
    alertSwitch("enableAlertLoopbackDetectedOnSwitchPort", "a port hears itself"),
    alertSwitch("enableAlertMoreThanOneMasterSwitch", "a second master appeared"),
    alertSwitch("enableAlertSlaveConnectedToTwoMasterSwitches", "a slave is cabled to two masters"),
    alertSwitch("enableAlertConnectedSlaveSwitchHasOtherMaster", "a slave belongs to another master"),
    alertSwitch("enableAlertFirmwareUpdateFailed", "firmware update failed"),
    alertSwitch("enableAlertFirmwareUpdateSucceeded", "firmware update succeeded"),
    alertSwitch("enableAlertPrivateKvmSessionEstablished", "private KVM session established"),
    alertSwitch("enableAlertSharedKvmSessionEstablished", "shared KVM session established"),
    alertSwitch("enableAlertKvmSessionDisconnected", "KVM session disconnected"),
    alertSwitch("enableAlertKvmSessionDisconnectedLinkDown", "KVM session disconnected link down"),
    alertSwitch("enableAlertKvmSessionConnectionFailure", "KVM session connection failure"),
    alertSwitch("enableAlertUserLogin", "user login"),
    alertSwitch("enableAlertFailedUserLogin", "failed user login"),
    alertSwitch("enableAlertUserAutoLogin", "user auto login"),
    alertSwitch("enableAlertUserLogout", "user logout"),
    alertSwitch("enableAlertSetupPortAdminLogin", "setup port admin login"),
    alertSwitch("enableAlertSetupPortFailedAdminLogin", "setup port failed admin login"),
    alertSwitch("enableAlertSetupPortAdminLogout", "setup port admin logout"),
    alertSwitch("enableAlertMirlAdminLogin", "web interface admin login"),
    alertSwitch("enableAlertMirlFailedAdminLogin", "web interface failed admin login"),
    alertSwitch("enableAlertMirlAdminLogout", "web interface admin logout"),
    alertSwitch("enableAlertRapAdminLogin", "remote access admin login"),
    alertSwitch("enableAlertRapFailedAdminLogin", "remote access failed admin login"),
    alertSwitch("enableAlertRapAdminLogout", "remote access admin logout"),
    alertSwitch("enableAlertFanFault", "fan fault"),
    alertSwitch("enableAlertFanFaultCleared", "fan fault cleared"),
    alertSwitch("enableAlertVoltageFault", "voltage fault"),
    alertSwitch("enableAlertVoltageFaultCleared", "voltage fault cleared"),
    alertSwitch("enableAlertPowerSupplyFault", "power supply fault"),
    alertSwitch("enableAlertPowerSupplyFaultCleared", "power supply fault cleared"),
    alertSwitch("enableAlertTemperatureFault", "temperature fault"),
    alertSwitch("enableAlertTemperatureFaultCleared", "temperature fault cleared"),
    alertSwitch("enableAlertSwitchExceedsUnmanagedCapacity", "switch exceeds unmanaged capacity"),
    alertSwitch("enableAlertReceiverInExceededCapacitySwitch", "receiver in exceeded capacity switch"),
    alertSwitch("enableAlertTransmitterInExceededCapacitySwitch", "transmitter in exceeded capacity switch"),
    alertSwitch("enableAlertDeviceReportedInvalidParameter", "device reported invalid parameter"),
    alertSwitch("enableAlertSwitchDetectedInvalidParameter", "switch detected invalid parameter"),
    alertSwitch("enableAlertSwitchFirmwareVersionDifference", "switch firmware version difference"),
    alertSwitch("enableAlertSwitchWatchdogReset", "switch watchdog reset"),
    alertSwitch("enableAlertDeviceReportedError", "device reported error"),
    alertSwitch("enableAlertDeviceReportedInfo", "device reported info"),
};

} // namespace zeqd::rows
