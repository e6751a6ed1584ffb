// Changes and removal of Switches, Receivers and Transmitters.
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/domain/Video.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Inactivity.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/SwitchLife.h"
#include "platform/service/sim/Upgrade.h"

namespace zeqd {

namespace {

/// A Switch that is up, also in a conflict.
bool isUp(const Record& device) {
    return !device.is("status", "offline");
}

Errno alreadyResetting(Res id) {
    if (id == Res::Swx) return Errno::SwxResetting;
    return id == Res::Rx ? Errno::RxResetting : Errno::TxResetting;
}

bool resetting(const Record& device) {
    return device.id() == Res::Swx ? device.is("status", "resetting") : device.is("status", "reset_pending");
}

/// Factory defaults of this Switch empty the whole system, in a step of their own.
void resetThisSwitch(Context& context, std::string_view mode) {
    Record& swx = *context.after;
    if (mode == "cold_reboot") return beginReset(context.tx, swx, span::kRestart);
    swx.choose("status", "resetting")
        .choose("simOwed", mode == "factory_default" ? "restore" : "restore_partial");
    context.tx.later(0, makeTask(Step::FactoryThisSwitch, Res::Swx, kThisSwitch));
}

void checkReset(Context& context) {
    Record& device = *context.after;
    if (!device.at("reset").isSet()) return;
    const std::string mode(device.choice("reset"));
    const bool swx = device.id() == Res::Swx;
    if (!isUp(*context.before)) return context.fail(notOnline(device.id()));
    if (resetting(*context.before)) return context.fail(alreadyResetting(device.id()));
    if (device.is("upgradeStatus", "upgrading")) return context.fail(Errno::InUse);
    if (!swx && mode == "factory_default_partial")
        return context.fail(device.id() == Res::Rx ? Errno::RxResetModeNotSupported
                                                   : Errno::TxResetModeNotSupported);
    if (swx && mode != "cold_reboot" && cascadePair(context.tx))
        return context.fail(Errno::RestoreWithLinkedPeer);
    if (swx && device.index() == kThisSwitch) return resetThisSwitch(context, mode);
    if (mode != "cold_reboot") restoreFactory(context.tx, device, mode == "factory_default_partial");
    beginReset(context.tx, device);
}

void checkUpgrade(Context& context) {
    Record& device = *context.after;
    if (!context.given("upgradeIndex") || device.number("upgradeIndex") == 0) return;
    if (!context.tx.find(Res::Upgrade, device.number("upgradeIndex")))
        return context.fail(Errno::NotFound, "upgradeIndex");
    if (!isUp(*context.before)) return context.fail(notOnline(device.id()));
    if (device.is("upgradeStatus", "upgrading") || resetting(device)) return context.fail(Errno::InUse);
    beginUpgrade(context.tx, device);
}

void checkMode(Context& context) {
    Record& swx = *context.after;
    if (!context.changes("mode")) return;
    if (cascadePair(context.tx)) return context.fail(Errno::InvalidCascadeChange);
    context.tx.put(swx);
    settleCascade(context.tx);
    swx = *context.tx.find(Res::Swx, swx.index());
    if (isForeignMaster(context.tx, swx))
        raiseAlert(context.tx, context.now, {"enableAlertMoreThanOneMasterSwitch", "error"}, swx.text("eid"),
                   deviceLabel(swx) + " is a second master");
}

} // namespace

void deviceChanged(Context& context) {
    checkReset(context);
    checkUpgrade(context);
    if (context.after->id() != Res::Rx) return;
    const bool timed = context.changes("sessionInactivityTimeout");
    if (!timed && !context.changes("videoScaling")) return;
    const RecordPtr tie = context.tx.findNumber(Res::Connection, "rxIndex", context.after->index());
    if (tie && timed) {
        Record connection = *tie;
        awaitInput(context.tx, context.now, connection, *context.after);
        context.tx.put(std::move(connection));
    }
    if (context.changes("videoScaling"))
        setPictures(*context.after, tie ? context.tx.find(Res::Tx, tie->number("txIndex")) : nullptr);
}

void switchChanged(Context& context) {
    if (context.changes("network") && context.before->is("cascadeRole", "backup"))
        return context.fail(Errno::NetworkChangeOnBackup);
    checkMode(context);
    for (const char* key : {"ntpEnable", "primaryNtpIpAddress", "secondaryNtpIpAddress"})
        if (context.changes(key)) {
            beginNtp(context.tx, *context.after);
            break;
        }
    checkReset(context);
    checkUpgrade(context);
}

void deviceDeleted(Context& context) {
    const Record& device = *context.before;
    if (device.is("upgradeStatus", "upgrading")) return context.fail(Errno::InUse);
    endSessionsOf(context.tx, context.now, {{device.id(), device.index()}}, alerts::kSessionEnded);
}

void switchDeleted(Context& context) {
    const Record& swx = *context.before;
    if (swx.index() == kThisSwitch) return context.fail(Errno::NotAllowed);
    const CascadePair pair = cascadePair(context.tx);
    const bool linked = pair && (pair.master->index() == swx.index() || pair.peer->index() == swx.index());
    if (linked) return context.fail(isUp(swx) ? Errno::InUse : Errno::DeleteOfflinePeer);
    if (swx.text("eid") == context.tx.singleton(Res::SystemGlobals).text("masterSwitchEid"))
        return context.fail(Errno::InUse);
    switchOffline(context.tx, context.now, context.before);
}

} // namespace zeqd
