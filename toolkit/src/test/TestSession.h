#pragma once

#include "session/Mailbox.h"
#include "session/SessionHost.h"
#include "test/RecordingSink.h"
#include "test/TestClock.h"
#include "web/WebSession.h"

#include <boost/json/object.hpp>

#include <memory>
#include <string>
#include <string_view>

namespace Wt {

namespace Test {
class WTestEnvironment;
}
class WWidget;

namespace Impl {

/// What stands behind a WTestEnvironment. The toolkit's own tests, and tests that bend time,
/// reach it by of().
class TestSession {
public:
    explicit TestSession(StartRequest& start);

    /// The session of this thread's WTestEnvironment; throws std::logic_error when there is none.
    static TestSession& current();
    ~TestSession();

    /// Fires the timers that come due.
    void advance(std::chrono::milliseconds by) { mClock.advance(by); }

    /// Flushes and gives what a browser would have been sent since the last call:
    /// JSON arrays of operations, joined.
    std::string takeOperations();

    /// An event of the browser for a node, as the page protocol has it;
    /// flushes first, so that new nodes are there.
    void browserEvent(const RenderNode& node, std::string_view kind, boost::json::object event = {});

    /// Handles an event of the session's mailbox, such as a request for a resource.
    void post(SessionEvent event);

    WebSession& session() { return *mSession; }

private:
    Mailbox mMailbox;
    RecordingSink mSink;
    std::unique_ptr<WebSession> mSession;
    TestClock mClock;
};

} // namespace Impl
} // namespace Wt
