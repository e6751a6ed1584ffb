#include "platform/service/rules/SettingsFiles.h"

#include "platform/service/archive/SettingsText.h"
#include "platform/service/domain/Devices.h"

namespace zeqd {

void settingsAction(Context& context) {
    const SettingsResult& result = context.prepared.settings;
    if (result.error != Errno{}) return context.fail(result.error, result.detail);
    if (context.tx.find(Res::Swx, kThisSwitch)->is("status", "resetting"))
        return context.fail(Errno::SwxResetting);
    if (context.after->is("settingsAction", "zip")) return;
    // Checked as a whole before anything is kept; what is kept waits for the reboot
    // that the interface asks for.
    Transaction trial(&context.tx);
    applySettings(trial, result.text, context.errors);
    if (!context.errors.empty()) return;
    Record pending(Res::PendingSettings, 1);
    pending.setText("data", result.text);
    context.tx.put(std::move(pending));
}

bool installPendingSettings(Transaction& tx) {
    const RecordPtr pending = tx.find(Res::PendingSettings, 1);
    if (!pending) return false;
    tx.erase(Res::PendingSettings, 1);
    Errors errors;
    Transaction trial(&tx);
    applySettings(trial, pending->text("data"), errors);
    if (errors.empty()) tx.merge(std::move(trial));
    return errors.empty();
}

} // namespace zeqd
