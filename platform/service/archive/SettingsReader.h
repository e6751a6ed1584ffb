// Reading the text of a settings file, record by record. Takes nothing on trust.
#pragma once

#include "platform/service/archive/SettingsParts.h"
#include "platform/service/core/Errors.h"
#include "platform/service/record/Record.h"

#include <functional>

namespace zeqd {

/// A record of the file. Its index is the file's.
struct SettingsRecord {
    Record record;
    std::vector<std::uint32_t> targets = {}; ///< of a user: places in SettingsContent::eids
    std::vector<std::uint32_t> favorites = {};
};

struct SettingsContent {
    std::vector<std::string> eids; ///< of Transmitters
    std::size_t unknown = 0;       ///< targets and favourites without an EID
};

/// Calls for each record, in the order of kSettingsParts; `content.eids` is complete before the first. Adds to `errors`
/// and ends when something is not sound.
void readSettings(std::string_view text, SettingsContent& content,
                  const std::function<void(const SettingsPart&, SettingsRecord)>& visit, Errors& errors);

} // namespace zeqd
