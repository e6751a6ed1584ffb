// Firmware updates: fetch, check, push, flash, reboot; and every way to fail.
#pragma once

#include "platform/service/sim/Fetch.h"
#include "platform/service/sim/Steps.h"

#include <optional>

namespace zeqd {

/// What came of fetching the file: the upgradeStatus it leads to ("upgrading" when it is good),
/// and what it holds.
struct FetchedFirmware {
    std::string_view status = "failed_file_get";
    std::string type;
    std::string version;
    std::string why; ///< of a failure, in words; may be empty
};

/// The update is told to begin; `device` is the record as it is about to be kept.
void beginUpgrade(Transaction& tx, Record& device);

/// Where the file of an upgrade record lies; nothing when the update is not wanted any more.
std::optional<FetchSource> upgradeSource(const View& view, const Task& task);

/// Off the event loop.
FetchedFirmware fetchFirmware(const FetchSource& source, const FetchRules& rules);

/// The file is there, or is not.
void upgradeFetched(StepContext& step, const FetchedFirmware& fetched);

void upgradeProgress(StepContext& step);
void upgradeReset(StepContext& step);

/// An update that was under way when the service stopped.
void upgradeLost(Transaction& tx, std::int64_t now, Record& device);

} // namespace zeqd
