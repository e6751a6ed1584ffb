// The libraries of monitors and of firmware sources, and the system's settings.
#include "platform/service/demo/EdidBlock.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/sim/Attach.h"
#include "platform/service/sim/Cascade.h"
#include "platform/service/sim/Enrolment.h"

namespace zeqd {

void edidCreated(Context& context) {
    if (context.after->text("name").empty()) return context.fail(Errno::TooShort, "service.detail.name");
    std::string& data = std::get<std::string>(context.after->at("data"));
    if (!isSoundEdid(data)) return context.fail(Errno::BadContent, "data");
    data.resize(kEdidRecord);
}

void edidChanged(Context& context) {
    if (context.before->is("isProtected", "is_true")) return context.fail(Errno::NotAllowed);
    if (context.after->text("name").empty()) context.fail(Errno::TooShort, "service.detail.name");
}

void edidDeleted(Context& context) {
    if (context.before->is("isProtected", "is_true")) context.fail(Errno::NotAllowed);
}

void upgradeCreated(Context& context) {
    const Record& source = *context.after;
    if (source.text("filename").empty()) context.fail(Errno::TooShort, "filename");
    if (!source.is("protocol", "file") && source.text("location").empty())
        context.fail(Errno::MissingParameters, "location");
}

/// A source that a device is being updated from stays until that is over.
void upgradeDeleted(Context& context) {
    for (const Res kind : {Res::Swx, Res::Rx, Res::Tx})
        if (context.tx.findIf(kind, [&](const Record& device) {
                return device.is("upgradeStatus", "upgrading") &&
                       device.number("upgradeIndex") == context.before->index();
            }))
            return context.fail(Errno::InUse);
}

void globalsChanged(Context& context) {
    Record& globals = *context.after;
    if (context.changes("masterSwitchEid")) {
        if (cascadePair(context.tx)) return context.fail(Errno::InvalidCascadeChange, "masterSwitchEid");
        context.tx.put(globals);
        settleCascade(context.tx);
        globals = context.tx.singleton(Res::SystemGlobals);
    }
    const bool rules = globals.is("managedSetting", "enrolling") || globals.is("managedSetting", "managed") ||
                       globals.is("managedSetting", "verified");
    const bool losesLast =
        context.changes("managerIpAddress") && globals.text("auxiliaryManagerIpAddress").empty();
    if (rules && globals.text("managerIpAddress").empty() && (context.changes("managedSetting") || losesLast))
        return context.fail(Errno::MissingParameters, "managerIpAddress");
    if (!context.changes("managedSetting")) return showManagers(globals);
    beginEnrolment(context.tx, globals);
    reviewCapacity(context.tx, context.now, !globals.is("managedSetting", "non_managed"));
}

} // namespace zeqd
