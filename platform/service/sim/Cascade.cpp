#include "platform/service/sim/Cascade.h"

#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/sim/SwitchLife.h"

#include <utility>
#include <vector>

namespace zeqd {

namespace {

std::vector<RecordPtr> all(const View& view, Res id) {
    std::vector<RecordPtr> records;
    view.each(id, [&](const RecordPtr& record) {
        records.push_back(record);
        return true;
    });
    return records;
}

void putIfChanged(Transaction& tx, Record record) {
    if (!sameFields(record.fields(), tx.find(record.id(), record.index())->fields()))
        tx.put(std::move(record));
}

void chooseRole(Transaction& tx, const Record& swx, std::string_view mode, std::string_view role) {
    Record next = *tx.find(Res::Swx, swx.index());
    if (!mode.empty()) next.choose("mode", mode);
    putIfChanged(tx, std::move(next.choose("cascadeRole", role)));
}

void setCascade(Transaction& tx, const std::string& master, const std::string& peer,
                std::string_view controller) {
    Record globals = tx.singleton(Res::SystemGlobals);
    globals.setText("masterSwitchEid", master).setText("peerControllerSwitchEid", peer);
    putIfChanged(tx, std::move(globals.choose("cascadeController", controller)));
}

/// What is plugged in to a Switch names it by its index.
void movePlugs(Transaction& tx, std::uint32_t one, std::uint32_t other) {
    for (const Res kind : {Res::Rx, Res::Tx}) {
        for (const RecordPtr& device : all(tx, kind)) {
            const std::uint32_t at = device->number("simSwx");
            if (at != one && at != other) continue;
            Record next = *device;
            tx.put(std::move(next.set("simSwx", at == one ? other : one)));
        }
    }
}

/// Steps that wait for one of them find another Switch under its index, and do nothing: what they were to end is ended,
/// or begun again.
void exchange(Transaction& tx, std::int64_t now, std::uint32_t other) {
    const RecordPtr here = tx.find(Res::Swx, kThisSwitch);
    const RecordPtr there = tx.find(Res::Swx, other);
    for (const auto& [from, to] : {std::pair(here, other), std::pair(there, kThisSwitch)}) {
        Record moved(Res::Swx, to);
        moved.fields() = from->fields();
        moved.choose("lcdBacklightFlash", "disabled");
        tx.put(moved);
        switchGoesOn(tx, moved);
    }
    movePlugs(tx, kThisSwitch, other);
    for (const RecordPtr& session : all(tx, Res::AdminSession)) {
        tx.erase(Res::AdminSession, session->index());
        noteAdminLogout(tx, now, *session);
    }
}

bool isBusy(const Record& swx) {
    return swx.is("upgradeStatus", "upgrading") || swx.is("status", "resetting");
}

void linkPeer(Context& context, std::uint32_t index) {
    Transaction& tx = context.tx;
    const RecordPtr self = tx.find(Res::Swx, kThisSwitch);
    const RecordPtr peer = tx.find(Res::Swx, index);
    if (!peer) return context.fail(Errno::NotFound);
    if (index == kThisSwitch || cascadePair(tx) || !self->is("mode", "master") || !peer->is("mode", "slave"))
        return context.fail(Errno::InvalidCascadeChange);
    if (peer->is("status", "offline")) return context.fail(Errno::SwxNotOnline);
    if (!peer->is("status", "ready") || !peer->is("usage", "usable")) return context.fail(Errno::SwxNotReady);
    setCascade(tx, self->text("eid"), peer->text("eid"), "master");
    settleCascade(tx);
    tx.later(span::kPeerSync, makeTask(Step::PeerReady));
}

void unlinkPeer(Context& context, std::uint32_t) {
    const CascadePair pair = cascadePair(context.tx);
    if (!pair || pair.master->index() != kThisSwitch || pair.controller != pair.master)
        return context.fail(Errno::InvalidCascadeChange);
    setCascade(context.tx, pair.master->text("eid"), {}, "master");
    settleCascade(context.tx);
}

/// Commanded by the controller, which then stands by. Whoever administers goes along to the new one.
void switchRoles(Context& context, std::uint32_t) {
    Transaction& tx = context.tx;
    const CascadePair pair = cascadePair(tx);
    if (!pair || pair.controller->index() != kThisSwitch) return context.fail(Errno::InvalidCascadeChange);
    if (!pair.standby->is("cascadeRole", "backup") || !pair.standby->is("status", "ready"))
        return context.fail(Errno::BackupNotReady);
    if (isBusy(*pair.controller) || isBusy(*pair.standby)) return context.fail(Errno::InUse);
    setCascade(tx, pair.master->text("eid"), pair.peer->text("eid"),
               pair.controller == pair.master ? "peer" : "master");
    chooseRole(tx, *pair.controller, {}, "backup");
    chooseRole(tx, *pair.standby, {}, "controller");
    exchange(tx, context.now, pair.standby->index());
    settleCascade(tx);
}

/// This Switch becomes the master for good, and the other one its peer: from the controller that the peer is at present,
/// or from the backup whose controller is gone.
void promotePeer(Context& context, std::uint32_t) {
    Transaction& tx = context.tx;
    const CascadePair pair = cascadePair(tx);
    if (!pair) return context.fail(Errno::InvalidCascadeChange);
    const bool standsBy = pair.standby->index() == kThisSwitch;
    const RecordPtr& other = standsBy ? pair.controller : pair.standby;
    if (standsBy && !pair.standby->is("cascadeRole", "backup")) return context.fail(Errno::BackupNotReady);
    if (standsBy && !other->is("status", "offline"))
        return context.fail(Errno::InvalidCascadeChange, "service.detail.controller_is_up");
    if (!standsBy && pair.controller == pair.master) return context.fail(Errno::InvalidCascadeChange);
    const RecordPtr& self = standsBy ? pair.standby : pair.controller;
    setCascade(tx, self->text("eid"), other->text("eid"), "master");
    // A controller that is gone does not stand by before it is back.
    if (standsBy) chooseRole(tx, *other, "slave", "slave");
    settleCascade(tx);
}

struct ActionRow {
    std::string_view action;
    void (*run)(Context&, std::uint32_t);
};
constexpr ActionRow kActions[] = {
    {"link_peer", linkPeer},
    {"unlink_peer", unlinkPeer},
    {"force_role_switch", switchRoles},
    {"promote_peer", promotePeer},
};

/// The role of a Switch that is in no cascade, or of a third one beside it.
std::string_view roleAlone(const View& view, const Record& swx) {
    const bool master = swx.is("mode", "master");
    if (swx.index() == kThisSwitch) return master ? "controller" : "slave";
    return master && !isForeignMaster(view, swx) ? "controller" : "not_present";
}

} // namespace

CascadePair cascadePair(const View& view) {
    const Record& globals = view.singleton(Res::SystemGlobals);
    const std::string& master = globals.text("masterSwitchEid");
    const std::string& peer = globals.text("peerControllerSwitchEid");
    if (master.empty() || peer.empty() || master == peer) return {};
    CascadePair pair;
    pair.master = view.findText(Res::Swx, "eid", master);
    pair.peer = view.findText(Res::Swx, "eid", peer);
    if (!pair.master || !pair.peer) return {};
    const bool peerControls = globals.is("cascadeController", "peer");
    pair.controller = peerControls ? pair.peer : pair.master;
    pair.standby = peerControls ? pair.master : pair.peer;
    return pair;
}

bool isForeignMaster(const View& view, const Record& swx) {
    return swx.is("mode", "master") &&
           swx.text("eid") != view.singleton(Res::SystemGlobals).text("masterSwitchEid");
}

void settleCascade(Transaction& tx) {
    const RecordPtr self = tx.find(Res::Swx, kThisSwitch);
    if (!self) return;
    const CascadePair pair = cascadePair(tx);
    const bool own = pair && (pair.master->index() == kThisSwitch || pair.peer->index() == kThisSwitch);
    if (!own) {
        const std::string master = tx.singleton(Res::SystemGlobals).text("masterSwitchEid");
        setCascade(tx, self->is("mode", "master") ? self->text("eid") : master, {}, "master");
    }
    for (const RecordPtr& swx : all(tx, Res::Swx)) {
        Record next = *swx;
        if (own && swx->index() == pair.master->index()) next.choose("mode", "master");
        if (own && swx->index() == pair.peer->index()) next.choose("mode", "slave");
        if (own && swx->index() == pair.controller->index())
            next.choose("cascadeRole", "controller");
        else if (own && swx->index() == pair.standby->index())
            next.choose("cascadeRole", swx->is("cascadeRole", "backup") ? "backup" : "slave");
        else
            next.choose("cascadeRole", own ? "not_present" : roleAlone(tx, *swx));
        // Two masters that see each other are in conflict until one steps back.
        const bool conflict = swx->index() != kThisSwitch && isForeignMaster(tx, next);
        if (conflict && next.is("status", "ready")) next.choose("status", "conflict_is_master");
        if (!conflict && next.is("status", "conflict_is_master")) next.choose("status", "ready");
        putIfChanged(tx, std::move(next));
    }
}

void changeCascade(Context& context, std::string_view action, std::uint32_t index) {
    for (const ActionRow& row : kActions)
        if (row.action == action) row.run(context, index);
}

void lookFrom(Context& context, std::uint32_t index) {
    const RecordPtr there = context.tx.find(Res::Swx, index);
    if (!there || index == kThisSwitch) return context.fail(Errno::NotFound, "eid");
    if (!there->is("status", "ready") && !there->is("status", "conflict_is_master"))
        return context.fail(Errno::SwxNotReady);
    if (isBusy(*there) || isBusy(*context.tx.find(Res::Swx, kThisSwitch))) return context.fail(Errno::InUse);
    exchange(context.tx, context.now, index);
    settleCascade(context.tx);
}

void cascadeSwitchReady(Transaction& tx, const Record& swx) {
    const CascadePair pair = cascadePair(tx);
    if (pair && pair.standby->index() == swx.index() && !swx.is("cascadeRole", "backup"))
        tx.later(span::kPeerSync, makeTask(Step::PeerReady));
}

void peerReady(StepContext& step) {
    const CascadePair pair = cascadePair(step.tx);
    if (!pair || !pair.standby->is("status", "ready") || !pair.standby->is("cascadeRole", "slave")) return;
    chooseRole(step.tx, *pair.standby, {}, "backup");
}

} // namespace zeqd
