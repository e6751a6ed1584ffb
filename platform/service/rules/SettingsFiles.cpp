#include "platform/service/rules/SettingsFiles.h"

#include "platform/service/archive/SettingsArchive.h"
#include "platform/service/archive/SettingsText.h"
#include "platform/service/domain/Devices.h"

namespace zeqd {

void settingsAction(Context& context) {
    const SettingsResult& result = context.prepared.settings;
    if (result.error != Errno{}) return context.fail(result.error, result.detail);
    if (context.tx.find(Res::Swx, kThisSwitch)->is("status", "resetting"))
        return context.fail(Errno::SwxResetting);
    // It was checked as a whole; it waits for the reboot that the interface asks for.
    Record pending(Res::PendingSettings, 1);
    pending.setText("data", result.text);
    context.tx.put(std::move(pending));
}

std::string installPendingSettings(Transaction& tx) {
    const RecordPtr pending = tx.find(Res::PendingSettings, 1);
    if (!pending) return {};
    tx.erase(Res::PendingSettings, 1);
    std::string why;
    const std::string& data = pending->text("data");
    // Before this version they were kept as text.
    const std::optional<std::string> text =
        data.starts_with('{') ? std::optional(data) : unpackSettings(data, {}, why);
    Errors errors;
    Transaction trial(&tx);
    SettingsReport report;
    if (text) report = applySettings(trial, *text, errors);
    if (!text || !errors.empty())
        return "Settings of a settings file could not be installed: " +
               (text ? errors.front().detail : std::string("damaged"));
    for (const Res id : {Res::Connection, Res::UserSession}) {
        std::vector<std::uint32_t> indexes;
        trial.each(id, [&](const RecordPtr& record) {
            indexes.push_back(record->index());
            return true;
        });
        for (const std::uint32_t index : indexes) trial.erase(id, index);
    }
    tx.merge(std::move(trial));
    std::string told = "Settings of a settings file have been installed";
    if (report.targets)
        told += "; " + std::to_string(report.targets) +
                " targets and favorites of Transmitters that are not here were left out";
    if (report.logins)
        told += "; " + std::to_string(report.logins) +
                " automatic logins of users that are not here were cleared";
    return told;
}

} // namespace zeqd
