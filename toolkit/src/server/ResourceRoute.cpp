#include "core/Limits.h"
#include "server/HttpConnection.h"
#include "server/HttpExchange.h"
#include "server/Routes.h"
#include "server/Site.h"
#include "server/UploadSpool.h"
#include "server/Url.h"

#include <cstdio>

namespace Wt::Impl {

namespace {

using Step = AnswerQueue::Step;

/// Sends what the session says, in the form that the request's version can take.
class AnswerWriter {
public:
    explicit AnswerWriter(HttpConnection& connection)
        : mConnection(connection), mSendsBody(connection.request().method != "HEAD") {}

    bool begun() const { return mBegun; }
    bool done() const { return mDone; }

    Awaitable<bool> take(Step& step) {
        bool fine = false;
        if (step.kind == Step::Kind::Head && !mBegun)
            fine = co_await head(step);
        else if (step.kind == Step::Kind::Data && mBegun)
            fine = co_await data(step.data);
        else if (step.kind == Step::Kind::End && mBegun)
            fine = co_await end();
        if (step.sent) step.sent(fine);
        co_return fine;
    }

private:
    Awaitable<bool> head(Step& step) {
        mBegun = true;
        mStatus = step.head.status;
        mLeft = step.contentLength;
        mChunked = mLeft < 0 && mConnection.request().http11;
        if (mChunked) step.head.add("Transfer-Encoding", "chunked");
        step.head.close = mLeft < 0 && !mChunked;
        if (step.head.close) mConnection.end();
        const bool sent = co_await mConnection.sendHead(step.head, mLeft);
        co_return sent;
    }

    Awaitable<bool> data(std::string_view bytes) {
        mBytes += bytes.size();
        if (mLeft >= 0 && static_cast<std::uint64_t>(mLeft) < mBytes)
            co_return false; // more than was promised
        if (!mSendsBody || bytes.empty()) co_return true;
        std::string framed;
        if (mChunked) {
            char size[20];
            std::snprintf(size, sizeof size, "%zx\r\n", bytes.size());
            framed.append(size).append(bytes).append("\r\n");
            bytes = framed;
        }
        const bool sent = co_await mConnection.send(bytes);
        co_return sent;
    }

    Awaitable<bool> end() {
        mDone = true;
        mConnection.logRequest(mStatus, mBytes);
        if (mLeft >= 0 && static_cast<std::uint64_t>(mLeft) != mBytes)
            co_return false; // less than was promised
        bool sent = true;
        if (mChunked && mSendsBody) sent = co_await mConnection.send("0\r\n\r\n");
        co_return sent;
    }

    HttpConnection& mConnection;
    const bool mSendsBody;
    bool mBegun = false;
    bool mDone = false;
    bool mChunked = false;
    int mStatus = 0;
    std::int64_t mLeft = -1; ///< bytes promised, or -1
    std::uint64_t mBytes = 0;
};

Awaitable<void> sendAnswer(HttpConnection& connection, AnswerQueue& queue, const Session& session) {
    AnswerWriter writer(connection);
    int failure = 0;
    while (!writer.done() && failure == 0) {
        auto step = queue.pop();
        if (!step) {
            const bool news = co_await queue.wait(kResourceDeadline);
            if (!news) failure = 503;
        } else if (step->kind == Step::Kind::Abandoned) {
            failure = session.hasEnded() ? 410 : 500;
        } else {
            const bool fine = co_await writer.take(*step);
            if (!fine) failure = 500;
        }
    }
    queue.close();
    if (failure == 0) co_return;
    connection.end(); // an answer that has begun can't be mended: the browser sees that it breaks off
    if (!writer.begun()) co_await connection.respond(errorResponse(failure));
}

// Reads the body into the exchange. 0, or the status to refuse with.
Awaitable<int> readInto(HttpConnection& connection, HttpExchange& exchange) {
    const ServerConfig& config = connection.site().config;
    const std::string type(connection.request().header("content-type"));
    if (multipartBoundary(type).empty()) {
        std::string body;
        const auto keep = [&body](std::string_view piece) {
            body.append(piece);
            return 0;
        };
        const int status = co_await connection.readBody(kFormBytes, HttpConnection::kNoStall, keep);
        if (status != 0) co_return status;
        if (type.starts_with("application/x-www-form-urlencoded")) {
            auto fields = parseParameters(body);
            if (!fields) co_return 400;
            exchange.parameters.merge(*fields);
        }
        co_return 0;
    }
    UploadSpool spool(config.spoolFolder);
    MultipartParser parser(type, spool);
    const auto parse = [&parser](std::string_view piece) { return parser.feed(piece); };
    const int status = co_await connection.readBody(config.maxRequestSize, kUploadStall, parse);
    if (status != 0) co_return status;
    if (!parser.complete()) co_return 400;
    exchange.files = spool.takeFiles();
    for (const auto& [name, values] : spool.parameters()) {
        auto& all = exchange.parameters[name];
        all.insert(all.end(), values.begin(), values.end());
    }
    co_return 0;
}

void postTo(Session& session, std::shared_ptr<HttpExchange> exchange) {
    SessionEvent event;
    event.kind = SessionEvent::Kind::Resource;
    event.exchange = std::move(exchange);
    session.mailbox().post(std::move(event));
}

} // namespace

Awaitable<void> serveResource(HttpConnection& connection, const std::string& rest) {
    const HttpRequest& request = connection.request();
    const std::size_t nameEnd = rest.find('/');
    const std::string key = nameEnd == rest.npos
                                ? std::string()
                                : rest.substr(nameEnd + 1, rest.find('/', nameEnd + 1) - nameEnd - 1);
    const auto session = connection.site().sessions->findByName(rest.substr(0, nameEnd),
                                                                request.cookie(connection.cookieName()));
    int refusal = 0;
    auto parameters = parseParameters(request.query());
    if (!session || key.empty())
        refusal = 404;
    else if (request.method == "POST" && !connection.comesFromOwnPage())
        refusal = 403;
    else if (!parameters)
        refusal = 400;
    if (refusal != 0) {
        co_await connection.respond(errorResponse(refusal));
        co_return;
    }

    const auto queue = std::make_shared<AnswerQueue>(connection.stream().get_executor());
    auto exchange = std::make_shared<HttpExchange>(queue);
    exchange->method = request.method == "HEAD" ? "GET" : request.method;
    exchange->resourceId = key;
    exchange->parameters = std::move(*parameters);
    for (const auto& [name, value] : request.headers)
        if (name != "cookie") exchange->headers.emplace(name, value);

    const int status = co_await readInto(connection, *exchange);
    if (status == 413) {
        // The session is told, so that the page can say so; the browser is answered here,
        // before it sends it all.
        exchange->tooLarge =
            std::max<std::uint64_t>(request.bodyBytes, connection.site().config.maxRequestSize + 1);
        queue->close();
        postTo(*session, std::move(exchange));
    }
    if (status != 0) {
        exchange.reset();
        co_await connection.respond(errorResponse(status));
        co_return;
    }
    postTo(*session, std::move(exchange));
    co_await sendAnswer(connection, *queue, *session);
}

} // namespace Wt::Impl
