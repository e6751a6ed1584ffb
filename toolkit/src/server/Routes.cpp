#include "server/Routes.h"

#include "core/Secret.h"
#include "server/ClientFiles.h"
#include "server/Gzip.h"
#include "server/HttpConnection.h"
#include "server/Site.h"
#include "server/Url.h"

#include <optional>

namespace Wt::Impl {

namespace {

// Small, and the same for everybody, so a crawler or a monitor costs no more than a file.
HttpResponse startPageResponse(const Site& site, const EntryPoint& entry, const HttpRequest& request) {
    HttpResponse response;
    response.setBody("text/html; charset=utf-8", startPage(site.base, entry.favicon));
    const Digest digest = digestOf(*response.body);
    std::string etag = "\"";
    for (std::size_t i = 0; i < 8; ++i)
        etag += "0123456789abcdef"[digest[i] >> 4], etag += "0123456789abcdef"[digest[i] & 15];
    etag += "\"";
    response.add("Cache-Control", "no-cache").add("ETag", etag);
    if (request.header("if-none-match").find(etag) != std::string_view::npos) {
        response.status = 304;
        response.body = nullptr;
    }
    return response;
}

// The text of the page is plain, and the name of a form that the parser has checked.
HttpResponse foreignHostResponse(std::string_view host) {
    const std::string name = hostWithoutPort(host);
    HttpResponse response = errorResponse(421);
    response.setBody(
        "text/plain; charset=utf-8",
        "421 Misdirected Request\n"
        "This server does not answer to the name \"" +
            name +
            "\".\n\n"
            "It can be reached by its numeric address, by its own host name, and by the names in its "
            "certificate.\nTo add this name, start it with the option --host " +
            name + "\n");
    response.close = true;
    return response;
}

// The same address over TLS.
HttpResponse sentOnToTls(std::string_view host, const std::string& target, int port) {
    HttpResponse response;
    response.status = 308;
    response.close = true;
    std::string location = "https://" + hostWithoutPort(host);
    if (port != 443) location += ":" + std::to_string(port);
    response.add("Location", location + target);
    return response;
}

// What is refused whatever is asked for: another's name, and anything over plain HTTP where there is TLS.
std::optional<HttpResponse> refusedAtTheDoor(HttpConnection& connection) {
    const Site& site = connection.site();
    const HttpRequest& request = connection.request();
    const std::string_view host = request.header("host");
    if (!host.empty() && !site.hosts.allows(host)) return foreignHostResponse(host);
    if (site.tlsPort == 0 || connection.stream().tls()) return std::nullopt;
    if (host.empty()) return errorResponse(400); // HTTP/1.0: nobody knows where to send it
    return sentOnToTls(host, request.target, site.tlsPort);
}

// What follows `folder` in the path, if the path lies there.
bool liesIn(const std::string& path, const std::string& folder, std::string& rest) {
    if (path.compare(0, folder.size(), folder) != 0) return false;
    rest = path.substr(folder.size());
    return true;
}

} // namespace

Awaitable<void> route(HttpConnection& connection) {
    Site& site = connection.site();
    const HttpRequest& request = connection.request();
    const bool reads = request.method == "GET" || request.method == "HEAD";
    const auto path = normalPath(request.target);
    if (auto refusal = refusedAtTheDoor(connection)) {
        co_await connection.respond(std::move(*refusal));
        co_return;
    }
    if (!connection.isOfUser() && site.sessions->isOfUser(request.cookie(connection.cookieName())))
        connection.becomesUsers();
    if (!path) {
        co_await connection.respond(errorResponse(400));
        co_return;
    }
    if (!reads && request.method != "POST") {
        co_await connection.respond(errorResponse(405));
        co_return;
    }
    std::string rest;
    if (liesIn(*path, site.base + "/wt-session/", rest)) {
        if (rest == "ws")
            co_await serveWebSocket(connection);
        else
            co_await serveSession(connection, rest);
    } else if (liesIn(*path, site.base + "/wt-resource/", rest)) {
        co_await serveResource(connection, rest);
    } else if (!reads) {
        co_await connection.respond(errorResponse(405));
    } else if (liesIn(*path, site.base + "/wt-client/", rest)) {
        co_await serveClientFile(connection, rest);
    } else if (const EntryPoint* entry = site.entryAt(*path)) {
        HttpResponse response = startPageResponse(site, *entry, request);
        co_await connection.respond(std::move(response));
    } else {
        StaticFiles::Answer answer = site.files.get(*path, request);
        if (answer.file.descriptor < 0)
            co_await connection.respond(std::move(answer.response));
        else
            co_await connection.respondFile(std::move(answer.response), std::move(answer.file));
    }
}

Awaitable<void> serveClientFile(HttpConnection& connection, const std::string& rest) {
    const std::string folder = std::string(clientHash()) + "/";
    HttpResponse response = errorResponse(404);
    for (const ClientFile& file : clientFiles()) {
        if (rest != folder + std::string(file.name)) continue;
        response = HttpResponse();
        const std::string_view packed(reinterpret_cast<const char*>(file.gzip), file.gzipSize);
        const bool compress = connection.site().config.compress &&
                              connection.request().headerHasToken("accept-encoding", "gzip");
        response.setBody(mimeTypeOf(file.name), compress ? std::string(packed) : gunzip(packed, file.size));
        if (compress) response.add("Content-Encoding", "gzip");
        response.add("Vary", "Accept-Encoding").add("Cache-Control", "public, max-age=31536000, immutable");
    }
    co_await connection.respond(std::move(response));
}

} // namespace Wt::Impl
