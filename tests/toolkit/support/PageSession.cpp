#include "tests/toolkit/support/PageSession.h"

#include <boost/json/parse.hpp>

namespace toolkit_test {

namespace {
class PlainEnvironment : public Wt::WEnvironment {
public:
    explicit PlainEnvironment(const Wt::Impl::StartRequest& start) : WEnvironment(start) {}
};
} // namespace

void Recorder::send(std::string operations) {
    bytes += operations.size();
    last = operations;
    page.apply(operations);
}

void Recorder::finish(std::string operations) {
    finished = operations;
    ended = true;
}

Wt::Impl::StartRequest startRequest() {
    Wt::Impl::StartRequest start;
    start.sessionId = "test";
    start.scheme = "https";
    start.hostName = "host:8443";
    start.path = "/";
    start.locale = "en";
    return start;
}

PageSession::PageSession()
    : session(startRequest(), mailbox, sink, "/wt-resource/test"),
      environment(std::make_unique<PlainEnvironment>(startRequest())),
      application(new Wt::WApplication(*environment)) {}

PageSession::~PageSession() = default;

std::string PageSession::flush() {
    sink.last.clear();
    session.flush();
    return sink.last;
}

void PageSession::browser(const std::string& events) {
    session.handlePage(boost::json::parse(events));
}

void PageSession::reload(std::uint64_t number, const std::string& path) {
    Wt::Impl::SessionEvent event;
    event.kind = Wt::Impl::SessionEvent::Kind::Reload;
    event.pageNumber = number;
    event.path = path;
    mailbox.post(std::move(event));
    session.processEvents();
}

void PageSession::event(const Wt::Impl::RenderNode& node, const std::string& kind, const std::string& more) {
    browser("[{\"t\":" + std::to_string(node.nodeId()) + ",\"k\":\"" + kind + "\"" +
            (more.empty() ? "" : ",") + more + "}]");
}

} // namespace toolkit_test
