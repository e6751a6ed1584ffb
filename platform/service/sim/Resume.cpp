#include "platform/service/sim/Resume.h"

#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/domain/Video.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Enrolment.h"
#include "platform/service/sim/Inactivity.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/SwitchLife.h"
#include "platform/service/sim/Upgrade.h"

#include <map>

namespace zeqd {

namespace {

/// The step that goes on from a state which no Receiver or Transmitter stays in.
struct GoOnRow {
    std::string_view status;
    Step step;
    std::int64_t delayMs;
};
constexpr GoOnRow kGoOn[] = {
    {"reset_pending", Step::DeviceDown, span::kBeforeReset},
    {"offline", Step::DeviceConfiguring, span::kDeviceBoot},
    {"configuring", Step::DeviceReady, span::kDeviceConfigure},
};

void resumeDevice(Transaction& tx, std::int64_t now, Record& device) {
    const bool swx = device.id() == Res::Swx;
    if (device.is("upgradeStatus", "upgrading")) upgradeLost(tx, now, device);
    device.choose("lcdBacklightFlash", "disabled");
    if (swx && device.index() == kThisSwitch) {
        finishUpgrade(device);
        device.choose("status", "ready");
    }
    if (device.enabled("simPowered") && device.is("simOwed", "reset"))
        tx.later(span::kBeforeUpgradeReset, makeTask(Step::UpgradeReset, device.id(), device.index()));
    if (swx) return switchGoesOn(tx, device);
    if (!device.enabled("simPowered")) return;
    for (const GoOnRow& row : kGoOn)
        if (device.is("status", row.status))
            tx.later(row.delayMs, makeTask(row.step, device.id(), device.index()));
}

} // namespace

void resumeAll(Transaction& tx, std::int64_t now) {
    std::map<std::uint32_t, std::uint32_t> connected;
    tx.each(Res::Connection, [&](const RecordPtr& connection) {
        connected[connection->number("rxIndex")] = connection->number("txIndex");
        return true;
    });
    for (const Res kind : {Res::Swx, Res::Rx, Res::Tx}) {
        tx.each(kind, [&](const RecordPtr& stored) {
            Record device = *stored;
            resumeDevice(tx, now, device);
            if (kind == Res::Rx) {
                const auto tie = connected.find(device.index());
                setPictures(device, tie == connected.end() ? nullptr : tx.find(Res::Tx, tie->second));
            }
            if (!sameFields(device.fields(), stored->fields())) tx.put(std::move(device));
            return true;
        });
    }
    const Record& stored = tx.singleton(Res::SystemGlobals);
    Record globals = stored;
    beginEnrolment(tx, globals);
    if (!sameFields(globals.fields(), stored.fields())) tx.put(std::move(globals));
    settleCascade(tx);
    resumeInactivity(tx, now);
}

} // namespace zeqd
