#include "tests/toolkit/support/FakeHost.h"

#include "session/Mailbox.h"
#include "session/PageSink.h"
#include "session/ResourceExchange.h"

#include <boost/json/serialize.hpp>

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace Wt::Impl {

namespace json = boost::json;

namespace {

struct Ended {};

class FakeHost : public SessionHost {
public:
    FakeHost(const StartRequest& start, Mailbox& mailbox, PageSink& sink) : mMailbox(mailbox), mSink(sink) {
        ++fakeHostCounts().alive;
        ++fakeHostCounts().made;
        mSink.send(
            json::serialize(json::array{json::array{"hello", start.scheme, start.hostName, start.width}}));
    }
    ~FakeHost() override { --fakeHostCounts().alive; }

    void run() override {
        try {
            loop();
        } catch (const Ended&) {
        }
    }

private:
    void loop() {
        while (true) {
            SessionEvent event = mMailbox.take();
            switch (event.kind) {
            case SessionEvent::Kind::Reload:
                mSink.begin(event.pageNumber);
                mSink.send("[[\"again\",\"" + event.path + "\"]]");
                break;
            case SessionEvent::Kind::End:
                throw Ended();
            case SessionEvent::Kind::Call:
                event.call();
                break;
            case SessionEvent::Kind::Resource:
                answer(event.exchange);
                break;
            case SessionEvent::Kind::Page:
                for (const json::value& one : event.page.as_array())
                    if (handle(one.as_object())) return;
                break;
            }
        }
    }

    // True leaves the loop.
    bool handle(const json::object& event) {
        if (!event.contains("k")) return false;
        const std::string kind(event.at("k").as_string());
        if (kind == "echo") mSink.send(json::serialize(json::array{json::array{"echo", event.at("x")}}));
        if (kind == "wait") fakeHostGate().acquire();
        if (kind == "flood")
            mSink.send("[[\"flood\",\"" +
                       std::string(static_cast<std::size_t>(event.at("bytes").as_int64()), 'x') + "\"]]");
        if (kind == "login") mSink.recognised();
        if (kind == "throw") throw std::runtime_error("as asked");
        if (kind == "nest") {
            mSink.send("[[\"nested\"]]");
            try {
                loop();
            } catch (const Ended&) {
                ++fakeHostCounts().unwound;
                throw;
            }
        }
        if (kind == "quit") {
            mSink.finish("[[\"bye\"]]");
            throw Ended();
        }
        return kind == "unnest";
    }

    // Keys: "hello" answers at once, "stream" sends 64 pieces as the browser takes them, "never" lets go
    // without an answer, "hold" keeps the exchange, "upload" tells what came.
    void answer(const std::shared_ptr<ResourceExchange>& exchange) {
        if (exchange->resourceId == "hello") {
            exchange->start(200, {{"Content-Type", "text/plain"}, {"X-Evil", "a\r\nb: c"}}, 5);
            exchange->write("hello", {});
            exchange->finish();
        } else if (exchange->resourceId == "stream") {
            exchange->start(200, {{"Content-Type", "text/csv"}}, -1);
            stream(exchange, 0);
        } else if (exchange->resourceId == "hold") {
            mHeld = exchange;
        } else if (exchange->resourceId == "upload") {
            if (exchange->tooLarge != 0)
                return mSink.send("[[\"tooLarge\"," + std::to_string(exchange->tooLarge) + "]]");
            std::string text;
            for (const auto& [name, values] : exchange->parameters)
                for (const std::string& value : values) text += name + "=" + value + ";";
            for (const SpooledFile& file : exchange->files) {
                std::ifstream stored(file.spoolPath, std::ios::binary);
                const std::string content{std::istreambuf_iterator<char>(stored), {}};
                text += file.field + ":" + file.clientName + ":" + file.mimeType + ":" +
                        std::to_string(file.size) + ":" +
                        (content.size() == file.size ? content.substr(0, 10) : "wrong size") + ";";
            }
            exchange->start(200, {{"Content-Type", "text/plain"}}, static_cast<std::int64_t>(text.size()));
            exchange->write(text, {});
            exchange->finish();
        }
    }

    void stream(const std::shared_ptr<ResourceExchange>& exchange, int piece) {
        if (piece == 64) return exchange->finish();
        exchange->write(std::string(32768, static_cast<char>('a' + piece % 26)),
                        [this, exchange, piece](bool sent) {
                            if (!sent) return;
                            SessionEvent next;
                            next.call = [this, exchange, piece] { stream(exchange, piece + 1); };
                            mMailbox.post(std::move(next));
                        });
    }

    Mailbox& mMailbox;
    PageSink& mSink;
    std::shared_ptr<ResourceExchange> mHeld;
};

} // namespace

std::unique_ptr<SessionHost> makeFakeHost(const StartRequest& start, Mailbox& mailbox, PageSink& sink,
                                          const std::string&) {
    return std::make_unique<FakeHost>(start, mailbox, sink);
}

std::counting_semaphore<>& fakeHostGate() {
    static std::counting_semaphore<> gate(0);
    return gate;
}

FakeHostCounts& fakeHostCounts() {
    static FakeHostCounts counts;
    return counts;
}

} // namespace Wt::Impl
