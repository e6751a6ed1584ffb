#include "test/TestSession.h"

#include <boost/json/array.hpp>

#include <stdexcept>

namespace Wt::Impl {

namespace {
thread_local TestSession* tTest = nullptr;
}

TestSession::TestSession(StartRequest& start)
    : mSession(std::make_unique<WebSession>(start, mMailbox, mSink, "/wt-resource/test")), mClock(*mSession) {
    if (tTest) throw std::logic_error("a thread has one WTestEnvironment at a time");
    tTest = this;
}

TestSession::~TestSession() {
    tTest = nullptr;
}

TestSession& TestSession::current() {
    if (!tTest) throw std::logic_error("no WTestEnvironment in this thread");
    return *tTest;
}

std::string TestSession::takeOperations() {
    mSession->flush();
    std::string all;
    for (const std::string& operations : mSink.take()) all += operations;
    return all;
}

void TestSession::post(SessionEvent event) {
    mMailbox.post(std::move(event));
    mSession->processEvents();
}

void TestSession::browserEvent(const RenderNode& node, std::string_view kind, boost::json::object event) {
    mSession->flush();
    event["k"] = kind;
    event["t"] = node.nodeId();
    mSession->handlePage(boost::json::array{std::move(event)});
}

} // namespace Wt::Impl
