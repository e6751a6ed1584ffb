#include "platform/service/sim/Life.h"

#include "platform/service/domain/AutoSession.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/sim/Inactivity.h"

namespace zeqd {

void beginReset(Transaction& tx, Record& device, std::int64_t delayMs) {
    device.choose("status", device.id() == Res::Swx ? "resetting" : "reset_pending")
        .choose("simOwed", "nothing");
    Step step = device.id() == Res::Swx ? Step::SwitchDown : Step::DeviceDown;
    if (device.id() == Res::Swx && device.index() == kThisSwitch) step = Step::RestartService;
    tx.later(delayMs, makeTask(step, device.id(), device.index()));
}

void goOffline(Transaction& tx, std::int64_t now, const std::vector<RecordPtr>& devices) {
    DeviceSet set;
    for (const RecordPtr& device : devices) set.emplace(device->id(), device->index());
    endSessionsOf(tx, now, set, alerts::kSessionLinkDown);
    for (const auto& [kind, index] : set) {
        Record gone = *tx.find(kind, index);
        gone.choose("status", "offline");
        tx.put(std::move(gone));
    }
}

void comeBack(Transaction& tx, const RecordPtr& device, std::int64_t delayMs) {
    tx.later(delayMs, makeTask(Step::DeviceConfiguring, device->id(), device->index()));
}

void finishUpgrade(Record& device) {
    if (device.is("upgradeStatus", "complete") && !device.text("simNextVersion").empty())
        device.setText("firmwareVersion", device.text("simNextVersion"));
    device.setText("simNextVersion", {}).choose("upgradeStatus", "idle").set("upgradePercent", 0);
    device.choose("simOwed", "nothing");
}

void deviceDown(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!device || !device->is("status", "reset_pending")) return;
    goOffline(step.tx, step.now, {device});
    comeBack(step.tx, device, span::kDeviceBoot);
}

void deviceConfiguring(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!device || !device->is("status", "offline") || !device->enabled("simPowered")) return;
    const RecordPtr swx = step.tx.find(Res::Swx, device->number("simSwx"));
    if (swx && swx->is("status", "offline")) return;
    Record next = *device;
    next.choose("status", "configuring");
    step.tx.put(std::move(next));
    step.tx.later(span::kDeviceConfigure, makeTask(Step::DeviceReady, device->id(), device->index()));
}

void deviceReady(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!device || !device->is("status", "configuring")) return;
    Record next = *device;
    next.choose("status", "ready");
    finishUpgrade(next);
    step.tx.put(std::move(next));
    if (device->id() != Res::Rx) return;
    startAutoSession(step.tx, step.now, device->index());
    awaitInput(step.tx, step.now, device->index());
}

void flashEnd(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!device || device->number("simFlash") != step.task.argument) return;
    Record next = *device;
    next.choose("lcdBacklightFlash", "disabled");
    step.tx.put(std::move(next));
}

} // namespace zeqd
