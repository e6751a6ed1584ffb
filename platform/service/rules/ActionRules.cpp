// The control resources: writing them starts an action.
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/SystemRows.h"
#include "platform/service/demo/EdidBlock.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/rules/SettingsFiles.h"
#include "platform/service/sim/Cascade.h"

namespace zeqd {

namespace {

std::vector<std::uint32_t> indexesOf(const View& view, Res id) {
    std::vector<std::uint32_t> indexes;
    view.each(id, [&](const RecordPtr& record) {
        indexes.push_back(record->index());
        return true;
    });
    return indexes;
}

void pullEdid(Context& context) {
    const Record& given = *context.after;
    const bool rx = context.given("rxIndex");
    if (rx == context.given("txIndex") || !context.given("edidName"))
        return context.fail(Errno::MissingParameters, rx ? "edidName" : "rxIndex");
    const RecordPtr device = rx ? context.tx.find(Res::Rx, given.number("rxIndex"))
                                : context.tx.find(Res::Tx, given.number("txIndex"));
    if (!isReady(*device)) return context.fail(notOnline(device->id()));
    const std::string& data = device->text(rx ? "simMonitor" : "simEdid");
    if (data.empty()) return context.fail(Errno::NotFound, "service.detail.no_monitor");
    const std::string& name = given.text("edidName");
    if (name.empty()) return context.fail(Errno::TooShort, "service.detail.name");
    if (context.tx.findText(Res::Edid, "name", name))
        return context.fail(Errno::NotUnique, "service.detail.name");
    if (context.tx.count(Res::Edid) >= resource(Res::Edid).capacity) return context.fail(Errno::Capacity);
    Record edid(Res::Edid, context.tx.nextIndex(Res::Edid));
    edid.setText("name", name).setText("data", data);
    // The interface puts the device's name into it, which together may be longer than a description is.
    const KeyRow& description = rows::kEdid[static_cast<std::size_t>(findKey(rows::kEdid, "description"))];
    if (context.given("edidDescription"))
        edid.setText("description", given.text("edidDescription").substr(0, description.high));
    context.tx.put(std::move(edid));
}

void pushEdid(Context& context) {
    const Record& given = *context.after;
    for (const char* key : {"txIndex", "edidIndex"})
        if (!context.given(key)) return context.fail(Errno::MissingParameters, key);
    Record tx = *context.tx.find(Res::Tx, given.number("txIndex"));
    if (!isReady(tx)) return context.fail(Errno::TxNotOnline);
    tx.setText("simEdid", context.tx.find(Res::Edid, given.number("edidIndex"))->text("data"));
    context.tx.put(std::move(tx));
}

void flash(Context& context, Res kind) {
    const Record& given = *context.after;
    for (const char* key : {"eid", "lcdBacklightFlashDuration"})
        if (!context.given(key)) return context.fail(Errno::MissingParameters, key);
    if (given.text("eid").empty()) return context.fail(Errno::TooShort, "eid");
    const RecordPtr device = context.tx.findText(kind, "eid", given.text("eid"));
    if (!device) return context.fail(Errno::NotFound, "eid");
    if (device->is("status", "offline")) return context.fail(notOnline(kind));
    const std::uint32_t seconds = given.number("lcdBacklightFlashDuration");
    Record next = *device;
    next.choose("lcdBacklightFlash", seconds > 1 ? "enabled" : "disabled");
    next.set("simFlash", next.number("simFlash") + 1);
    if (seconds > 1)
        context.tx.later(std::int64_t{1000} * seconds,
                         makeTask(Step::FlashEnd, kind, device->index(), next.number("simFlash")));
    context.tx.put(std::move(next));
}

} // namespace

void alertsAction(Context& context) {
    const std::string_view action = context.after->choice("alertsAction");
    if (action == "clear_history") {
        for (const std::uint32_t index : indexesOf(context.tx, Res::HistoricalAlerts))
            context.tx.erase(Res::HistoricalAlerts, index);
    } else if (action == "ack_all") {
        for (const std::uint32_t index : indexesOf(context.tx, Res::UnacknowledgedAlerts))
            acknowledge(context.tx, index);
    } else if (!context.given("alertInstanceId")) {
        context.fail(Errno::MissingParameters, "alertInstanceId");
    } else if (!acknowledge(context.tx, context.after->number("alertInstanceId"))) {
        context.fail(Errno::NotFound, "alertInstanceId");
    }
}

void edidAction(Context& context) {
    context.after->is("edidAction", "pull") ? pullEdid(context) : pushEdid(context);
}

void rxAction(Context& context) {
    flash(context, Res::Rx);
}
void txAction(Context& context) {
    flash(context, Res::Tx);
}

void swxAction(Context& context) {
    if (context.given("settingsAction")) return settingsAction(context);
    if (context.given("eid")) return flash(context, Res::Swx);
    if (context.given("cascadeRoleAction"))
        return changeCascade(context, context.after->choice("cascadeRoleAction"),
                             context.index ? context.index : kThisSwitch);
    context.fail(Errno::MissingParameters);
}

} // namespace zeqd
