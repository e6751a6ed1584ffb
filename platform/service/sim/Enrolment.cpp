#include "platform/service/sim/Enrolment.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/sim/Attach.h"

namespace zeqd {

namespace {

/// Steps on the way in and out. Those in need the manager's answer.
struct EnrolRow {
    std::string_view from;
    std::string_view to;
    bool asksManager;
};
constexpr EnrolRow kEnrolment[] = {{"enrolling", "managed", true}, // the manager takes it
                                   {"managed", "verified", true},  // certificates are exchanged
                                   {"unenrolling", "non_managed", false}};
constexpr std::uint32_t kTries = 5; ///< a manager that does not answer is given up then

bool answers(const Record& globals) {
    return globals.enabled("simManager") && !globals.text("managerIpAddress").empty();
}

} // namespace

void showManagers(Record& globals) {
    const bool managed = globals.is("managedSetting", "verified");
    const bool primary = managed && answers(globals);
    const bool auxiliary = managed && !globals.text("auxiliaryManagerIpAddress").empty();
    const auto state = [](bool up) -> std::string_view { return up ? "up" : "down"; };
    globals.choose("commStatusRestClientPrimary", state(primary));
    globals.choose("commStatusRestServerPrimary", state(primary));
    globals.choose("commStatusRestClientAuxiliary", state(auxiliary));
    globals.choose("commStatusRestServerAuxiliary", state(auxiliary));
    globals.choose("currentManager", primary ? "primary" : auxiliary ? "auxiliary" : "none");
    globals.choose("preferredManager", managed ? "primary" : "none");
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
        std::string_view to = row.to;
        if (row.asksManager && !answers(globals)) {
            if (step.task.argument + 1 < kTries)
                return step.tx.later(span::kEnrol,
                                     makeTask(Step::Enrol, Res::Swx, 0, step.task.argument + 1));
            to = "non_managed";
            addAlert(step.tx, step.now, "error", thisSwitchEid(step.tx),
                     "Enrolment failed: the manager does not answer");
        }
        globals.choose("managedSetting", to);
        beginEnrolment(step.tx, globals);
        reviewCapacity(step.tx, step.now, !globals.is("managedSetting", "non_managed"));
        return step.tx.put(std::move(globals));
    }
}

} // namespace zeqd
