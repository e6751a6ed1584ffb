#include "platform/service/domain/Alerts.h"

#include "platform/service/catalogue/Catalogue.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::size_t kMaxMessage = 1000; ///< bytes, the limit of "alertMsg"

void makeRoom(Transaction& tx) {
    while (tx.count(Res::UnacknowledgedAlerts) >= resource(Res::UnacknowledgedAlerts).capacity)
        acknowledge(tx, tx.oldest(Res::UnacknowledgedAlerts)->index());
}

} // namespace

bool acknowledge(Transaction& tx, std::uint32_t instance) {
    const RecordPtr alert = tx.find(Res::UnacknowledgedAlerts, instance);
    if (!alert) return false;
    while (tx.count(Res::HistoricalAlerts) >= resource(Res::HistoricalAlerts).capacity)
        tx.erase(Res::HistoricalAlerts, tx.oldest(Res::HistoricalAlerts)->index());
    Record history(Res::HistoricalAlerts, instance);
    history.fields() = alert->fields();
    tx.erase(Res::UnacknowledgedAlerts, instance);
    tx.put(std::move(history));
    return true;
}

void addAlert(Transaction& tx, std::int64_t now, std::string_view severity, std::string_view originatorEid,
              std::string message) {
    if (tx.singleton(Res::EventLogControl).enabled(severity))
        tx.log({std::string(severity), std::string(originatorEid), message, now});
    makeRoom(tx);
    const std::uint32_t instance =
        std::max(tx.nextIndex(Res::UnacknowledgedAlerts), tx.nextIndex(Res::HistoricalAlerts));
    if (message.size() > kMaxMessage) {
        std::size_t end = kMaxMessage; // not amid a character of UTF-8
        while (end > 0 && (static_cast<unsigned char>(message[end]) & 0xC0) == 0x80) --end;
        message.resize(end);
    }
    Record alert(Res::UnacknowledgedAlerts, instance);
    alert.set("instanceId", instance).set("date", static_cast<std::uint32_t>(now));
    alert.setText("originatorEid", std::string(originatorEid)).setText("alertMsg", std::move(message));
    alert.choose("severity", severity);
    tx.put(std::move(alert));
}

void raiseAlert(Transaction& tx, std::int64_t now, const AlertKind& kind, std::string_view originatorEid,
                std::string message) {
    if (tx.singleton(Res::AlertLogControl).enabled(kind.key))
        addAlert(tx, now, kind.severity, originatorEid, std::move(message));
}

} // namespace zeqd
