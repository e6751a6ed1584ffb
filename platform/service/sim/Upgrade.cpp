#include "platform/service/sim/Upgrade.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/sim/Firmware.h"
#include "platform/service/sim/Life.h"

namespace zeqd {

namespace {

constexpr std::uint32_t kPercentPerTick = 5;
constexpr std::uint32_t kPushEnds = 60; ///< percent; flashing begins

struct FailureRow {
    std::string_view status;
    std::string_view why;
};
constexpr FailureRow kFailures[] = {
    {"failed", "it was interrupted"},
    {"failed_file_get", "the file could not be fetched"},
    {"failed_file_content", "the file is damaged or no firmware"},
    {"failed_dev_type", "the file is for another kind of device"},
    {"failed_file_push", "the device was lost"},
    {"failed_flash", "the device could not be flashed"},
};

bool upgrading(const RecordPtr& device) {
    return device && device->is("upgradeStatus", "upgrading");
}

void failUpgrade(Transaction& tx, std::int64_t now, Record& device, std::string_view status,
                 const std::string& detail = {}) {
    device.choose("upgradeStatus", status).choose("simFailure", "none");
    for (const FailureRow& row : kFailures)
        if (row.status == status)
            raiseAlert(tx, now, alerts::kFirmwareUpdateFailed, device.text("eid"),
                       "Firmware update of " + deviceLabel(device) + " failed: " + std::string(row.why) +
                           (detail.empty() ? "" : " (" + detail + ")"));
}

void complete(Transaction& tx, std::int64_t now, Record& device) {
    device.choose("upgradeStatus", "complete").set("upgradePercent", 100);
    raiseAlert(tx, now, alerts::kFirmwareUpdateSucceeded, device.text("eid"),
               "Firmware " + device.text("simNextVersion") + " installed on " + deviceLabel(device) +
                   "; it runs after a reboot");
    if (!tx.singleton(Res::SystemGlobals).enabled("resetAfterUpgrade")) return;
    device.choose("simOwed", "reset");
    // Whoever follows the update sees it complete before the reboot shows.
    tx.later(span::kBeforeUpgradeReset, makeTask(Step::UpgradeReset, device.id(), device.index()));
}

} // namespace

void beginUpgrade(Transaction& tx, Record& device) {
    device.choose("upgradeStatus", "upgrading").set("upgradePercent", 0).setText("simNextVersion", {});
    device.choose("simOwed", "nothing");
    tx.later(0, makeTask(Step::UpgradeFetch, device.id(), device.index(), device.number("upgradeIndex")));
}

std::optional<FetchSource> upgradeSource(const View& view, const Task& task) {
    const RecordPtr source = view.find(Res::Upgrade, task.argument);
    if (!source || !upgrading(view.find(task.resource, task.index))) return std::nullopt;
    return FetchSource{std::string(source->choice("protocol")), source->text("location"),
                       source->text("filename"), source->text("username"), source->text("password")};
}

FetchedFirmware fetchFirmware(const FetchSource& source, const FetchRules& rules) {
    FetchedFirmware fetched;
    const std::optional<std::string> file = fetchFile(source, rules, fetched.why);
    if (!file) return fetched;
    const std::optional<Firmware> firmware = readFirmware(*file);
    if (!firmware) return {"failed_file_content", {}, {}, {}};
    return {"upgrading", firmware->type, firmware->version, {}};
}

void upgradeFetched(StepContext& step, const FetchedFirmware& fetched) {
    if (const RecordPtr source = step.tx.find(Res::Upgrade, step.task.argument);
        source && !fetched.type.empty()) {
        Record known = *source;
        known.choose("deviceType", fetched.type).setText("version", fetched.version);
        step.tx.put(std::move(known));
    }
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!upgrading(device)) return;
    Record next = *device;
    if (fetched.status != "upgrading") {
        failUpgrade(step.tx, step.now, next, fetched.status, fetched.why);
    } else if (fetched.type != resource(device->id()).name) {
        failUpgrade(step.tx, step.now, next, "failed_dev_type");
    } else {
        next.setText("simNextVersion", fetched.version);
        step.tx.later(span::kUpgradeTick,
                      makeTask(Step::UpgradeProgress, device->id(), device->index(), kPercentPerTick));
    }
    step.tx.put(std::move(next));
}

void upgradeProgress(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!upgrading(device)) return;
    Record next = *device;
    const std::uint32_t percent = step.task.argument;
    const bool pushing = percent <= kPushEnds;
    if (device->is("status", "offline") ||
        (pushing && percent > kPushEnds / 2 && device->is("simFailure", "push"))) {
        failUpgrade(step.tx, step.now, next, "failed_file_push");
    } else if (!pushing && device->is("simFailure", "flash")) {
        failUpgrade(step.tx, step.now, next, "failed_flash");
    } else if (percent >= 100) {
        complete(step.tx, step.now, next);
    } else {
        next.set("upgradePercent", percent);
        step.tx.later(span::kUpgradeTick, makeTask(Step::UpgradeProgress, device->id(), device->index(),
                                                   percent + kPercentPerTick));
    }
    step.tx.put(std::move(next));
}

void upgradeReset(StepContext& step) {
    const RecordPtr device = step.tx.find(step.task.resource, step.task.index);
    if (!device || !device->is("upgradeStatus", "complete") || !device->is("status", "ready")) return;
    Record next = *device;
    beginReset(step.tx, next);
    step.tx.put(std::move(next));
}

void upgradeLost(Transaction& tx, std::int64_t now, Record& device) {
    failUpgrade(tx, now, device, "failed");
}

} // namespace zeqd
