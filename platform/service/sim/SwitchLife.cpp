#include "platform/service/sim/SwitchLife.h"

#include "platform/service/domain/Devices.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Life.h"

namespace zeqd {

namespace {

std::vector<RecordPtr> devicesOf(const View& view, std::uint32_t swx) {
    std::vector<RecordPtr> found;
    for (const Res kind : {Res::Rx, Res::Tx})
        view.each(kind, [&](const RecordPtr& device) {
            if (device->number("simSwx") == swx) found.push_back(device);
            return true;
        });
    return found;
}

/// The step that goes on from a state which no Switch stays in.
struct GoOnRow {
    std::string_view status;
    Step step;
    std::int64_t delayMs;
};
constexpr GoOnRow kGoOn[] = {
    {"resetting", Step::SwitchDown, span::kBeforeReset},
    {"offline", Step::SwitchBack, span::kSwitchBoot},
    {"dc_connected", Step::SwitchReady, span::kSwitchConnect},
};

} // namespace

void switchGoesOn(Transaction& tx, const Record& swx) {
    if (!swx.enabled("simPowered")) return;
    for (const GoOnRow& row : kGoOn)
        if (swx.is("status", row.status)) tx.later(row.delayMs, makeTask(row.step, Res::Swx, swx.index()));
    if (swx.is("ntpStatus", "pending"))
        tx.later(span::kNtp, makeTask(Step::NtpResult, Res::Swx, swx.index()));
    if (swx.is("cascadeRole", "slave")) tx.later(span::kPeerSync, makeTask(Step::PeerReady));
}

void switchOffline(Transaction& tx, std::int64_t now, const RecordPtr& swx) {
    std::vector<RecordPtr> devices = devicesOf(tx, swx->index());
    std::erase_if(devices, [](const RecordPtr& device) { return device->is("status", "offline"); });
    goOffline(tx, now, devices);
    Record gone = *swx;
    gone.choose("status", "offline");
    tx.put(std::move(gone));
}

void switchDown(StepContext& step) {
    const RecordPtr swx = step.tx.find(Res::Swx, step.task.index);
    if (!swx || !swx->is("status", "resetting")) return;
    switchOffline(step.tx, step.now, swx);
    step.tx.later(span::kSwitchBoot, makeTask(Step::SwitchBack, Res::Swx, swx->index()));
}

void switchBack(StepContext& step) {
    const RecordPtr swx = step.tx.find(Res::Swx, step.task.index);
    if (!swx || !swx->is("status", "offline") || !swx->enabled("simPowered")) return;
    Record next = *swx;
    next.choose("status", "dc_connected");
    step.tx.put(std::move(next));
    step.tx.later(span::kSwitchConnect, makeTask(Step::SwitchReady, Res::Swx, swx->index()));
}

void switchReady(StepContext& step) {
    const RecordPtr swx = step.tx.find(Res::Swx, step.task.index);
    if (!swx || !swx->is("status", "dc_connected")) return;
    Record next = *swx;
    next.choose("status", isForeignMaster(step.tx, *swx) ? "conflict_is_master" : "ready");
    finishUpgrade(next);
    cascadeSwitchReady(step.tx, next);
    step.tx.put(std::move(next));
    for (const RecordPtr& device : devicesOf(step.tx, swx->index())) comeBack(step.tx, device, span::kPlugIn);
}

void restoreFactory(const View& view, Record& device, bool keepNetwork) {
    for (std::size_t i = 0; i < device.rows().size(); ++i) {
        const KeyRow& row = device.rows()[i];
        if (row.access != Access::Write || (keepNetwork && row.key == "network")) continue;
        device.fields()[i] = defaultValue(row);
    }
    const Record& defaults = view.singleton(Res::CfgDefaults);
    if (device.id() == Res::Rx)
        device.set("sessionInactivityTimeout", defaults.number("rxDefaultSessionInactivityTimeout"));
    if (device.id() == Res::Tx)
        device.choose("usbMode", defaults.choice("txDefaultUsbMode"))
            .choose("trafficSetting", defaults.choice("txDefaultTrafficPriority"));
    if (device.id() == Res::Swx) device.choose("ntpStatus", "inactive");
}

void ntpResult(StepContext& step) {
    const RecordPtr swx = step.tx.find(Res::Swx, step.task.index);
    if (!swx || !swx->is("ntpStatus", "pending")) return;
    // Addresses that documentation reserves (RFC 5737) stand for servers that fail in their two ways.
    struct Outcome {
        std::string_view prefix;
        std::string_view status;
    };
    constexpr Outcome kOutcomes[] = {
        {"192.0.2.", "network_unreachable"}, {"198.51.100.", "server_unresponsive"}, {"", "success"}};
    const std::string& first = swx->text("primaryNtpIpAddress");
    const std::string& server = first.empty() ? swx->text("secondaryNtpIpAddress") : first;
    for (const Outcome& outcome : kOutcomes) {
        if (!server.starts_with(outcome.prefix)) continue;
        Record next = *swx;
        next.choose("ntpStatus", outcome.status);
        return step.tx.put(std::move(next));
    }
}

void beginNtp(Transaction& tx, Record& swx) {
    const bool named = !swx.text("primaryNtpIpAddress").empty() || !swx.text("secondaryNtpIpAddress").empty();
    if (!swx.enabled("ntpEnable")) {
        swx.choose("ntpStatus", "inactive");
    } else if (!named) {
        swx.choose("ntpStatus", "bad_configuration");
    } else {
        swx.choose("ntpStatus", "pending");
        tx.later(span::kNtp, makeTask(Step::NtpResult, Res::Swx, swx.index()));
    }
}

} // namespace zeqd
