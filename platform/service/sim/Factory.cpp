// Factory defaults of this Switch: the whole system begins anew.
#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/demo/Installation.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/SwitchLife.h"

namespace zeqd {

namespace {

constexpr Res kEmptied[] = {
    Res::Connection, Res::UserSession,     Res::AdminSession,         Res::User,
    Res::Upgrade,    Res::PendingSettings, Res::UnacknowledgedAlerts, Res::HistoricalAlerts};
constexpr Res kDefaulted[] = {Res::SystemGlobals, Res::CfgDefaults, Res::EventLogControl,
                              Res::AlertLogControl};

std::vector<RecordPtr> all(const View& view, Res id) {
    std::vector<RecordPtr> records;
    view.each(id, [&](const RecordPtr& record) {
        records.push_back(record);
        return true;
    });
    return records;
}

void restoreDevices(Transaction& tx, bool keepNetwork) {
    for (const Res kind : {Res::Rx, Res::Tx}) {
        for (const RecordPtr& device : all(tx, kind)) {
            Record next = *device;
            restoreFactory(tx, next, false);
            tx.put(std::move(next));
        }
    }
    for (const RecordPtr& stored : all(tx, Res::Swx)) {
        Record swx = *stored;
        restoreFactory(tx, swx, keepNetwork);
        if (swx.index() == kThisSwitch)
            swx.choose("mode", "master").choose("cascadeRole", "controller").choose("simOwed", "nothing");
        else
            swx.choose("mode",
                       stored->choice("mode")); // its place in the cascade is not this Switch's to say
        tx.put(std::move(swx));
    }
}

} // namespace

bool owesRestore(const View& view) {
    const RecordPtr self = view.find(Res::Swx, kThisSwitch);
    return self && (self->is("simOwed", "restore") || self->is("simOwed", "restore_partial"));
}

void factoryThisSwitch(Transaction& tx, std::int64_t now) {
    const bool keepNetwork = tx.find(Res::Swx, kThisSwitch)->is("simOwed", "restore_partial");
    DeviceSet receivers;
    for (const RecordPtr& rx : all(tx, Res::Rx)) receivers.emplace(Res::Rx, rx->index());
    endSessionsOf(tx, now, receivers, alerts::kSessionEnded);
    for (const Res id : kEmptied)
        for (const RecordPtr& record : all(tx, id)) tx.erase(id, record->index());
    for (const RecordPtr& edid : all(tx, Res::Edid))
        if (!edid->is("isProtected", "is_true")) tx.erase(Res::Edid, edid->index());
    for (const Res id : kDefaulted) tx.put(Record(id, 0));
    restoreDevices(tx, keepNetwork);
    Record globals(Res::SystemGlobals, 0);
    globals.setText("masterSwitchEid", thisSwitchEid(tx));
    tx.put(std::move(globals));
    settleCascade(tx);
    for (const RecordPtr& record : factoryInstallation())
        if (record->id() == Res::User) tx.put(*record);
}

} // namespace zeqd
