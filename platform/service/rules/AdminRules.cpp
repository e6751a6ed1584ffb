// Logins of administrators at the web interface.
#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/domain/Sessions.h"
#include "platform/service/rules/Rules.h"
#include "platform/service/secret/PasswordHash.h"

namespace zeqd {

namespace {

/// The refusal itself must be kept: an attempt that fails is an event too.
void refuse(Context& context, Errno number, const std::string& name) {
    context.fail(number);
    // People type their password into the wrong field, and events are read by many.
    const bool known = context.tx.findText(Res::User, "name", name) != nullptr;
    const std::string who = known ? "Login of \"" + name + "\"" : "Login under an unknown name";
    const std::string address = context.after->text("ipAddress");
    context.failureAlert = {&alerts::kFailedAdminLogin, who + " to the web interface failed" +
                                                            (address.empty() ? "" : ", from " + address)};
}

/// The address that the interface told; none: a program on this machine.
bool isLoopback(std::string_view address) {
    constexpr std::string_view kMapped = "::ffff:";
    if (address.starts_with(kMapped)) address.remove_prefix(kMapped.size());
    return address.empty() || address == "::1" || address.starts_with("127.");
}

/// Sessions that no client's connection holds stay until somebody deletes them; the oldest make room.
void makeRoomForLoose(Context& context) {
    constexpr std::size_t kMostLoose = 64;
    std::vector<RecordPtr> loose;
    context.tx.each(Res::AdminSession, [&](const RecordPtr& session) {
        if (session->number("simClient") == 0) loose.push_back(session);
        return true;
    });
    if (loose.size() < kMostLoose) return;
    context.tx.erase(Res::AdminSession, loose.front()->index());
    noteAdminLogout(context.tx, context.now, *loose.front());
}

} // namespace

void adminLogin(Context& context) {
    Record& session = *context.after;
    const std::string name = session.text("username");
    if (!context.given("username") || (!context.given("password") && !context.prepared.resumed))
        return context.fail(Errno::CredentialsMissing);
    const RecordPtr user = context.tx.find(Res::User, context.prepared.verifiedUser);
    if (!user || user->text("password") != context.prepared.verifiedHash || user->text("name") != name)
        return refuse(context, Errno::CredentialsWrong, name);
    if (!user->enabled("accountEnable")) return refuse(context, Errno::AccountDisabled, name);
    // Whoever is first sets the password: that is to be somebody at the machine.
    if (!user->is("passwordIsInitialized", "is_true") && !isLoopback(session.text("ipAddress")))
        return refuse(context, Errno::NotAuthorized, name);
    if (!user->is("role", "admin")) return refuse(context, Errno::NotAuthorized, name);
    session.set("userIndex", user->index()).set("sessionStartTime", static_cast<std::uint32_t>(context.now));
    if (session.text("sessionType") == "mirl") {
        session.set("simClient", static_cast<std::uint32_t>(context.client));
        if (const std::string key = resumeKey(user->text("password"), name); !key.empty())
            context.replyTexts.emplace_back("resumeKey", key);
    } else
        makeRoomForLoose(context);
    context.reply.emplace_back("userIndex", user->index());
    raiseAlert(context.tx, context.now, alerts::kAdminLogin, thisSwitchEid(context.tx),
               name + (context.prepared.resumed ? " works on in" : " logged in to") + " the web interface");
}

void adminLogout(Context& context) {
    noteAdminLogout(context.tx, context.now, *context.before);
}

} // namespace zeqd
