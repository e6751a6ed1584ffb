#include "core/Limits.h"
#include "core/Log.h"
#include "server/HttpConnection.h"
#include "server/Reload.h"
#include "server/Routes.h"
#include "server/Site.h"
#include "server/Url.h"
#include "server/Wakeup.h"

#include <boost/json/serialize.hpp>
#include <boost/json/value.hpp>

namespace Wt::Impl {

namespace json = boost::json;

namespace {

HttpResponse jsonResponse(std::string text) {
    HttpResponse response;
    response.add("Cache-Control", "no-store").setBody("application/json", std::move(text));
    return response;
}

void setCookie(HttpResponse& response, HttpConnection& connection, const std::string& value) {
    std::string cookie = connection.cookieName() + "=" + value + "; Path=/; HttpOnly; SameSite=Strict";
    if (connection.stream().tls()) cookie += "; Secure";
    response.add("Set-Cookie", cookie);
}

// "de-CH" of "de-CH,de;q=0.9,en;q=0.8".
std::string firstLanguage(std::string_view acceptLanguage) {
    const std::string_view first = acceptLanguage.substr(0, acceptLanguage.find_first_of(",; "));
    return first.size() <= 35 && isHeaderSafe("x", first) ? std::string(first) : std::string();
}

StartRequest describe(HttpConnection& connection, const StartInput& input, const EntryPoint& entry) {
    const HttpRequest& request = connection.request();
    StartRequest start;
    start.scheme = connection.scheme();
    start.hostName = request.header("host");
    start.clientAddress = connection.clientAddress();
    start.clientNetwork = connection.clientNetwork();
    start.userAgent = request.header("user-agent");
    start.locale = firstLanguage(request.header("accept-language"));
    start.path = entry.path;
    start.parameters = parseParameters(input.query).value_or(Parameters());
    for (const auto& [name, value] : request.headers)
        if (name != "cookie") start.headers.emplace(name, value); // the secret stays here
    start.width = input.width;
    start.height = input.height;
    start.create = entry.create;
    return start;
}

Awaitable<void> serveStart(HttpConnection& connection) {
    Site& site = connection.site();
    const auto body = co_await connection.readForm(kFormBytes);
    if (!body) co_return;
    const auto input = parseStartInput(*body);
    const auto path = input ? normalPath(input->path) : std::nullopt;
    const EntryPoint* entry = path ? site.entryAt(*path) : nullptr;
    if (!entry) {
        co_await connection.respond(errorResponse(400));
        co_return;
    }
    StartRequest start = describe(connection, *input, *entry);
    const auto begun =
        site.sessions->start(std::move(start), site.config.sessionIdPrefix, site.base + "/wt-resource/",
                             connection.request().cookie(connection.cookieName()));
    if (!begun.session) {
        log(LogLevel::Warning, "server", "session refused to " + connection.clientAddress() + ": too many");
        co_await connection.respond(errorResponse(begun.status));
        co_return;
    }
    HttpResponse response =
        jsonResponse(json::serialize(json::value{{"token", begun.token},
                                                 {"session", begun.session->name()},
                                                 {"reload", !site.config.reloadIsNewSession}}));
    setCookie(response, connection, begun.cookie);
    co_await connection.respond(std::move(response));
}

// The page of a user who has just logged in asks for new secrets, and asks again with the new token: that voids the
// ones from before the login.
Awaitable<void> serveRenew(HttpConnection& connection) {
    const auto body = co_await connection.readForm(kFormBytes);
    if (!body) co_return;
    const auto renewed = connection.site().sessions->renew(
        parseToken(*body), connection.request().cookie(connection.cookieName()));
    HttpResponse response;
    if (renewed.status == 200) {
        response = jsonResponse(json::serialize(json::value{{"token", renewed.token}}));
        setCookie(response, connection, renewed.cookie);
    } else if (renewed.status == 204) {
        response.status = 204;
    } else {
        response = errorResponse(renewed.status);
    }
    co_await connection.respond(std::move(response));
}

/// A poll that waits; its connection sleeps on the wake-up.
class PollPeer : public ChannelPeer {
public:
    explicit PollPeer(const IoExecutor& executor) : mWakeup(std::make_shared<Wakeup>(executor)) {}

    void wake() override { mWakeup->signal(); }
    Awaitable<bool> wait(std::chrono::steady_clock::duration limit) { return mWakeup->wait(limit); }

private:
    std::shared_ptr<Wakeup> mWakeup;
};

// Everything that waits for the page, as one answer.
std::string takeAll(Channel& channel) {
    std::string list;
    std::uint64_t cursor = 0;
    while (const auto message = channel.next(cursor)) {
        list.append(list.empty() ? "" : ",").append(message->text);
        if (message->last || list.size() > kOutputQueueBytes) break;
    }
    return list;
}

Awaitable<void> servePoll(HttpConnection& connection) {
    const auto body = co_await connection.readForm(kEventMessageBytes);
    if (!body) co_return;
    auto input = parsePageInput(*body);
    if (!input) {
        co_await connection.respond(errorResponse(400));
        co_return;
    }
    const auto session =
        connection.site().sessions->claim(input->hello, connection.request().cookie(connection.cookieName()));
    if (!session) {
        co_await connection.respond(jsonResponse("{\"m\":[{\"gone\":\"unknown\"}]}"));
        co_return;
    }
    Channel& channel = session->channel();
    const auto peer = std::make_shared<PollPeer>(connection.stream().get_executor());
    const bool carriesEvents = !input->messages.empty();
    if (!mayAttach(connection.site(), *input) || !channel.attach(peer, *input)) {
        co_await connection.respond(jsonResponse("{\"m\":[{\"gone\":\"unknown\"}]}"));
        co_return;
    }
    const Channel::Verdict verdict = channel.receive(std::move(*input));
    if (verdict == Channel::Verdict::TooFast) {
        channel.detach(peer.get());
        co_await connection.respond(errorResponse(429));
        co_return;
    }
    // A poll that brought events is answered as soon as there is news of them, at the latest soon: the page
    // does not send its next events before.
    const auto end = std::chrono::steady_clock::now() + (carriesEvents ? Seconds(1) : kPollWait);
    std::string list;
    while (true) {
        list = takeAll(channel);
        if (!list.empty() || !channel.isAttached(peer.get())) break;
        const auto left = end - std::chrono::steady_clock::now();
        if (left <= left.zero()) break;
        co_await peer->wait(left);
    }
    channel.detach(peer.get());
    std::string answer = channel.acknowledgement();
    answer.pop_back();
    co_await connection.respond(jsonResponse(answer.append(",\"m\":[").append(list).append("]}")));
}

Awaitable<void> serveBye(HttpConnection& connection) {
    const auto body = co_await connection.readForm(kFormBytes);
    if (!body) co_return;
    const ByeInput bye = parseBye(*body);
    const auto session =
        connection.site().sessions->find(bye.token, connection.request().cookie(connection.cookieName()));
    if (session) pageWasLeft(connection.site(), *session, bye.page);
    HttpResponse response;
    response.status = 204;
    co_await connection.respond(std::move(response));
}

struct SessionRoute {
    std::string_view name;
    Awaitable<void> (*serve)(HttpConnection&);
};

constexpr SessionRoute kSessionRoutes[] = {
    {"start", serveStart}, {"poll", servePoll}, {"bye", serveBye}, {"renew", serveRenew}};

} // namespace

Awaitable<void> serveSession(HttpConnection& connection, const std::string& rest) {
    int refusal = 404;
    for (const SessionRoute& candidate : kSessionRoutes) {
        if (rest != candidate.name) continue;
        if (connection.request().method != "POST") {
            refusal = 405;
        } else if (!connection.comesFromOwnPage()) {
            refusal = 403;
        } else {
            co_await candidate.serve(connection);
            co_return;
        }
    }
    co_await connection.respond(errorResponse(refusal));
}

} // namespace Wt::Impl
