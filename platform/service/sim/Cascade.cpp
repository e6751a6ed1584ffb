#include "platform/service/sim/Cascade.h"

#include "platform/service/domain/Devices.h"
#include "platform/service/sim/Attach.h"

namespace zeqd {

namespace {

void chooseRole(Transaction& tx, std::uint32_t index, std::string_view role) {
    Record swx = *tx.find(Res::Swx, index);
    swx.choose("cascadeRole", role);
    tx.put(std::move(swx));
}

void setPeer(Transaction& tx, const std::string& eid, std::string_view controller) {
    Record globals = tx.singleton(Res::SystemGlobals);
    globals.setText("peerControllerSwitchEid", eid).choose("cascadeController", controller);
    tx.put(std::move(globals));
}

bool peerControls(const View& view) {
    return view.singleton(Res::SystemGlobals).is("cascadeController", "peer");
}

Errno linkPeer(Transaction& tx, std::uint32_t index) {
    const RecordPtr self = tx.find(Res::Swx, kThisSwitch);
    const RecordPtr peer = tx.find(Res::Swx, index);
    if (!peer) return Errno::NotFound;
    if (index == kThisSwitch || linkedPeer(tx) || !self->is("mode", "master") || !peer->is("mode", "slave"))
        return Errno::InvalidCascadeChange;
    if (peer->is("status", "offline")) return Errno::SwxNotOnline;
    if (!peer->is("status", "ready") || !peer->is("usage", "usable")) return Errno::SwxNotReady;
    setPeer(tx, peer->text("eid"), "master");
    chooseRole(tx, kThisSwitch, "controller");
    chooseRole(tx, index, "slave");
    tx.later(span::kPeerSync, makeTask(Step::PeerReady, Res::Swx, index));
    return {};
}

Errno unlinkPeer(Transaction& tx, std::uint32_t) {
    const RecordPtr peer = linkedPeer(tx);
    if (!peer || peerControls(tx)) return Errno::InvalidCascadeChange;
    setPeer(tx, {}, "master");
    chooseRole(tx, peer->index(), "not_present");
    return {};
}

/// Controller and backup change places; which of them stands by must be ready.
Errno switchRoles(Transaction& tx, std::uint32_t) {
    const RecordPtr peer = linkedPeer(tx);
    if (!peer) return Errno::InvalidCascadeChange;
    const bool back = peerControls(tx);
    const RecordPtr standby = back ? tx.find(Res::Swx, kThisSwitch) : peer;
    if (!standby->is("cascadeRole", "backup") || !standby->is("status", "ready"))
        return Errno::BackupNotReady;
    setPeer(tx, peer->text("eid"), back ? "master" : "peer");
    chooseRole(tx, kThisSwitch, back ? "controller" : "backup");
    chooseRole(tx, peer->index(), back ? "backup" : "controller");
    return {};
}

/// The peer that controls becomes the master for good.
Errno promotePeer(Transaction& tx, std::uint32_t) {
    const RecordPtr peer = linkedPeer(tx);
    if (!peer || !peerControls(tx)) return Errno::InvalidCascadeChange;
    Record globals = tx.singleton(Res::SystemGlobals);
    globals.setText("masterSwitchEid", peer->text("eid")).setText("peerControllerSwitchEid", {});
    globals.choose("cascadeController", "master");
    tx.put(std::move(globals));
    Record master = *peer;
    master.choose("mode", "master").choose("cascadeRole", "controller");
    tx.put(std::move(master));
    Record self = *tx.find(Res::Swx, kThisSwitch);
    self.choose("mode", "slave").choose("cascadeRole", "slave");
    tx.put(std::move(self));
    return {};
}

struct ActionRow {
    std::string_view action;
    Errno (*run)(Transaction&, std::uint32_t);
};
constexpr ActionRow kActions[] = {
    {"link_peer", linkPeer},
    {"unlink_peer", unlinkPeer},
    {"force_role_switch", switchRoles},
    {"promote_peer", promotePeer},
};

struct EnrolRow {
    std::string_view from;
    std::string_view to;
};
constexpr EnrolRow kEnrolment[] = {
    {"enrolling", "managed"}, {"managed", "verified"}, {"unenrolling", "non_managed"}};

void showManagers(Record& globals) {
    const bool up = globals.is("managedSetting", "verified");
    const bool auxiliary = up && !globals.text("auxiliaryManagerIpAddress").empty();
    globals.choose("commStatusRestClientPrimary", up ? "up" : "down");
    globals.choose("commStatusRestServerPrimary", up ? "up" : "down");
    globals.choose("commStatusRestClientAuxiliary", auxiliary ? "up" : "down");
    globals.choose("commStatusRestServerAuxiliary", auxiliary ? "up" : "down");
    globals.choose("currentManager", up ? "primary" : "none")
        .choose("preferredManager", up ? "primary" : "none");
}

} // namespace

RecordPtr linkedPeer(const View& view) {
    const std::string& eid = view.singleton(Res::SystemGlobals).text("peerControllerSwitchEid");
    return eid.empty() ? nullptr : view.findText(Res::Swx, "eid", eid);
}

void nameMaster(const View& view, Record& globals) {
    const RecordPtr self = view.find(Res::Swx, kThisSwitch);
    if (!self || !self->is("mode", "master")) return;
    const std::string& named = globals.text("masterSwitchEid");
    if (named.empty() || !view.findText(Res::Swx, "eid", named))
        globals.setText("masterSwitchEid", self->text("eid"));
}

void changeCascade(Context& context, std::string_view action, std::uint32_t index) {
    for (const ActionRow& row : kActions) {
        if (row.action != action) continue;
        const Errno error = row.run(context.tx, index);
        if (error != Errno{}) context.fail(error);
    }
}

void peerReady(StepContext& step) {
    const RecordPtr peer = linkedPeer(step.tx);
    if (!peer || peer->index() != step.task.index || !peer->is("cascadeRole", "slave")) return;
    chooseRole(step.tx, peer->index(), "backup");
}

void beginEnrolment(Transaction& tx, Record& globals) {
    showManagers(globals);
    for (const EnrolRow& row : kEnrolment)
        if (globals.is("managedSetting", row.from)) tx.later(span::kEnrol, makeTask(Step::Enrol));
}

void enrol(StepContext& step) {
    Record globals = step.tx.singleton(Res::SystemGlobals);
    for (const EnrolRow& row : kEnrolment) {
        if (!globals.is("managedSetting", row.from)) continue;
        globals.choose("managedSetting", row.to);
        beginEnrolment(step.tx, globals);
        reviewCapacity(step.tx, step.now, !globals.is("managedSetting", "non_managed"));
        return step.tx.put(std::move(globals));
    }
}

} // namespace zeqd
