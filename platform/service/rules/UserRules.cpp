// Accounts: passwords by their limits, and never a system without an administrator who can log in.
#include "platform/service/domain/Sessions.h"
#include "platform/service/rules/Rules.h"

namespace zeqd {

namespace {

bool isAdministrator(const Record& user) {
    return user.is("role", "admin") && user.enabled("accountEnable");
}

bool otherAdministrator(const View& view, std::uint32_t index) {
    return view.findIf(Res::User, [index](const Record& user) {
        return user.index() != index && isAdministrator(user);
    }) != nullptr;
}

void checkPassword(Context& context) {
    Record& user = *context.after;
    if (user.text("name").empty() && user.text("mgrName").empty())
        context.fail(Errno::TooShort, "service.detail.name");
    const bool given = context.changes("password");
    const bool blankForbidden = !user.enabled("allowBlankPassword");
    const bool turnsBlank =
        user.text("password").empty() && context.before && !context.before->text("password").empty();
    const bool losesLeave =
        context.before && context.changes("allowBlankPassword") && user.text("password").empty();
    if ((turnsBlank || losesLeave || (context.method == Method::Create && !given)) && blankForbidden)
        context.fail(Errno::TooShort, "service.detail.password");
    if (given) user.choose("passwordIsInitialized", "is_true");
}

/// "passwordIsInitialized" is the service's to tell: a client may only confirm it together with a password.
void checkInitialized(Context& context) {
    const bool initialized = context.after->is("passwordIsInitialized", "is_true");
    if (context.changes("passwordIsInitialized") && !context.changes("password") && initialized)
        context.fail(Errno::NotAllowed, "service.detail.password");
    if (context.before && !initialized && context.before->is("passwordIsInitialized", "is_true"))
        context.fail(Errno::NotAllowed, "service.detail.password");
}

} // namespace

void userCreated(Context& context) {
    if (context.after->enabled("provisional"))
        context.after->set("simClient", static_cast<std::uint32_t>(context.client));
    checkInitialized(context);
    checkPassword(context);
    if (!context.given("osdInactivityTimeout"))
        context.after->set("osdInactivityTimeout",
                           context.tx.singleton(Res::CfgDefaults).number("rxDefaultOsdInactivityTimeout"));
}

void userChanged(Context& context) {
    context.after->choose("provisional", "disabled").set("simClient", 0u);
    checkInitialized(context);
    checkPassword(context);
    if (isAdministrator(*context.before) && !isAdministrator(*context.after) &&
        !otherAdministrator(context.tx, context.after->index()))
        context.fail(Errno::NotAllowed, "service.detail.last_administrator");
    if (!context.errors.empty()) return;
    if (!context.after->enabled("accountEnable")) return endSessionsOfUser(context);
    if (context.changes("target") || context.changes("allTargetAccess") || context.changes("modeAllowed"))
        endForbiddenConnections(context.tx, context.now, *context.after);
    const std::uint32_t user = context.before->index();
    if (!isAdministrator(*context.after)) return endAdminSessionsOfUser(context.tx, context.now, user, 0);
    // Who sets a new password works on; whoever else is in with the former one does not.
    if (context.changes("password")) endAdminSessionsOfUser(context.tx, context.now, user, context.client);
}

void userDeleted(Context& context) {
    if (isAdministrator(*context.before) && !otherAdministrator(context.tx, context.before->index()))
        return context.fail(Errno::NotAllowed, "service.detail.last_administrator");
    endSessionsOfUser(context);
}

} // namespace zeqd
