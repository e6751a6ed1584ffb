#pragma once

#include "session/Mailbox.h"
#include "session/PageSink.h"
#include "session/SessionHost.h"
#include "web/Renderer.h"
#include "web/SessionLock.h"
#include "web/TimerBook.h"

#include <Wt/WEvent.h>

#include <boost/json/object.hpp>

#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Wt {

class WApplication;
class WDialog;
class WEnvironment;
class WResource;
class WWebWidget;

namespace Impl {

class PageNode;
class ResourceAnswer;
struct SessionLink;

/// Passes through the handlers of a session that has ended, so that what is on the stack is destroyed. No
/// std::exception: application code does not catch it by accident.
struct SessionEnded {};

/// A session: application object, renderer, timers and resources, and the loop that takes its events.
/// Everything runs on one thread; current() finds it there.
class WebSession : public SessionHost {
public:
    WebSession(const StartRequest& start, Mailbox& mailbox, PageSink& sink, const std::string& resourceBase);
    ~WebSession() override;

    void run() override;
    static WebSession* current();
    /// Makes this the session of the calling thread, for a host that has no loop of its own.
    void makeCurrent() { setCurrent(this); }
    static void setCurrent(WebSession* session); ///< null: none
    /// The session looks again at what it waits for, and sends what has changed. From any thread.
    void wake() { mMailbox.post({}); }

    /// Sends what has changed.
    void flush();
    /// Flushes, waits for one event and handles it. Throws SessionEnded when the session has ended.
    void waitForEvent();
    /// Flushes and handles what is there, without waiting. Throws SessionEnded like waitForEvent().
    void processEvents();
    /// Handles the events of one message of the browser: a JSON array. Foreign data.
    void handlePage(const boost::json::value& events);
    /// Runs `work` through WApplication::notify().
    void notify(EventType type, const std::function<void()>& work);
    void quit();
    void redirect(const std::string& url);
    /// The user is known: the page is told to ask for new secrets.
    void recognised();

    Renderer& renderer() { return mRenderer; }
    TimerBook& timers() { return mTimers; }
    PageNode& page() { return *mPage; }
    const StartRequest& start() const { return mStart; }
    WApplication* application() const { return mApplication; }
    void setApplication(WApplication* application);

    // Focus, as the browser last told or as it was last set from here.
    std::uint32_t focused() const { return mFocused; }
    void setFocused(std::uint32_t node);
    /// What is selected in the focused field, in characters; {-1, -1} as long as the browser tells nothing.
    std::pair<int, int> selection() const { return mSelection; }

    /// The URL of a resource; stays until revokeResource().
    std::string resourceUrl(WResource& resource);
    void revokeResource(WResource& resource);
    void haveMoreData(WResource& resource);

    /// In tests: plays the user of a dialog that runs exec(), instead of waiting for events.
    std::function<void(WDialog*)> dialogExecuted;

private:
    friend class ::Wt::WApplication;

    void handle(SessionEvent& event);
    void reload(const SessionEvent& event);
    void handleBrowserEvent(const boost::json::object& event);
    void deliver(const boost::json::object& event);
    void takeFocus(const boost::json::object& event);
    void takeValues(const boost::json::object& event);
    void serveResource(const std::shared_ptr<ResourceExchange>& exchange);
    void handlePending();
    std::unique_ptr<PageNode> makePage();
    SessionEvent takeEvent();
    void throwIfEnded() const;
    void closeLink();

    StartRequest mStart;
    Mailbox& mMailbox;
    PageSink& mSink;
    std::string mResourceBase;
    std::unique_ptr<WEnvironment> mEnvironment; // of a session with a browser
    std::uint32_t mNextNode = 1;
    std::shared_ptr<SessionLock> mLock;
    std::unique_ptr<PageNode> mPage;
    Renderer mRenderer;
    TimerBook mTimers;
    WApplication* mApplication = nullptr;
    std::deque<boost::json::object> mPending; // events of the browser that came with the one being handled
    std::unordered_map<std::string, WResource*> mResources; // by key
    std::vector<std::shared_ptr<ResourceAnswer>> mAnswers;  // under way
    std::shared_ptr<SessionLink> mLink; // to the mailbox, for I/O threads; made at the first resource request
    std::uint64_t mOrdinal = 0;         // of the mailbox's event being handled; 0: it came another way
    std::uint32_t mFocused = 0;
    std::pair<int, int> mSelection{-1, -1};
    bool mQuitted = false;
};

} // namespace Impl
} // namespace Wt
