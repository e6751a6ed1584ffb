#include "web/WebSession.h"

#include "core/ForeignJson.h"
#include "core/Log.h"
#include "session/ResourceExchange.h"
#include "web/JsonText.h"
#include "web/PageNode.h"

#include <Wt/WApplication.h>
#include <Wt/WTimer.h>

#include <boost/json/array.hpp>

#include <utility>

namespace Wt::Impl {

namespace {

thread_local WebSession* tSession = nullptr;

/// Browser events of one message that are handled; the rest is dropped.
constexpr std::size_t kMaxEventsPerMessage = 1000;
/// Values of form fields that one event may carry.
constexpr std::size_t kMaxValues = 2000;

/// The environment of a session with a browser.
class SessionEnvironment : public WEnvironment {
public:
    explicit SessionEnvironment(const StartRequest& start) : WEnvironment(start) {}
};

/// "o12" or "12" as an id; 0 if it is none.
std::uint32_t nodeIdOf(std::string_view text) {
    if (!text.empty() && text[0] == 'o') text.remove_prefix(1);
    std::uint32_t id = 0;
    for (const char c : text) {
        if (c < '0' || c > '9' || id > 400'000'000) return 0;
        id = id * 10 + static_cast<std::uint32_t>(c - '0');
    }
    return id;
}

/// Events that are no doing of the user.
bool isBackground(std::string_view kind) {
    return kind == "size" || kind == "load" || kind == "range";
}

} // namespace

std::unique_ptr<SessionHost> makeSessionHost(const StartRequest& start, Mailbox& mailbox, PageSink& sink,
                                             const std::string& resourceBase) {
    return std::make_unique<WebSession>(start, mailbox, sink, resourceBase);
}

WebSession::WebSession(const StartRequest& start, Mailbox& mailbox, PageSink& sink,
                       const std::string& resourceBase)
    : mStart(start), mMailbox(mailbox), mSink(sink), mResourceBase(resourceBase),
      mLock(std::make_shared<SessionLock>()), mPage(makePage()), mRenderer(*mPage) {
    mLock->take();
    makeCurrent();
}

/// The page's own node counts in the session too.
std::unique_ptr<PageNode> WebSession::makePage() {
    RenderNode::countIn(&mNextNode);
    return std::make_unique<PageNode>();
}

WebSession::~WebSession() {
    makeCurrent();
    delete mApplication;
    closeLink();
    setCurrent(nullptr);
    mLock->leave();
}

WebSession* WebSession::current() {
    return tSession;
}

void WebSession::setCurrent(WebSession* session) {
    tSession = session;
    Renderer::setCurrent(session ? &session->mRenderer : nullptr);
    RenderNode::countIn(session ? &session->mNextNode : nullptr);
}

void WebSession::setApplication(WApplication* application) {
    mApplication = application;
    SessionLock::enter(mLock, this, application);
}

/// Other threads may have the session while it waits.
SessionEvent WebSession::takeEvent() {
    struct Away {
        SessionLock& lock;
        explicit Away(SessionLock& one) : lock(one) { lock.leave(); }
        ~Away() { lock.take(); }
    } const away(*mLock);
    return mMailbox.take();
}

void WebSession::run() {
    makeCurrent();
    try {
        mEnvironment = std::make_unique<SessionEnvironment>(mStart);
        WApplication* made = mStart.create ? mStart.create(*mEnvironment) : nullptr;
        if (!made) mQuitted = true;
        while (!mQuitted) {
            flush();
            SessionEvent event = takeEvent();
            handle(event);
        }
    } catch (const SessionEnded&) {
        // The session is over; whatever was on the stack has been destroyed.
    } catch (const std::exception& error) {
        log(LogLevel::Error, "session " + mStart.sessionId, std::string("ends: ") + error.what());
        mQuitted = true;
    } catch (...) {
        log(LogLevel::Error, "session " + mStart.sessionId, "ends: a handler threw something");
        mQuitted = true;
    }
    std::string last;
    if (mQuitted) last = mRenderer.flush();
    if (mApplication) {
        try {
            mApplication->finalize();
        } catch (const std::exception& error) {
            log(LogLevel::Error, "session " + mStart.sessionId, std::string("while ending: ") + error.what());
        } catch (const SessionEnded&) {
            // A handler of the end waited for events.
        }
        delete mApplication;
        mApplication = nullptr;
    }
    if (mQuitted) mSink.finish(std::move(last));
}

void WebSession::flush() {
    mTimers.flush(mRenderer);
    if (mApplication) mApplication->showPath();
    std::string operations = mRenderer.flush();
    if (!operations.empty()) mSink.send(std::move(operations));
}

void WebSession::throwIfEnded() const {
    if (mQuitted) throw SessionEnded();
}

void WebSession::waitForEvent() {
    throwIfEnded();
    if (!mPending.empty()) {
        const boost::json::object event = std::move(mPending.front());
        mPending.pop_front();
        handleBrowserEvent(event);
    } else {
        flush();
        SessionEvent event = takeEvent();
        handle(event);
    }
    throwIfEnded();
}

void WebSession::processEvents() {
    if (mQuitted) return; // what is to be sent goes with the end
    flush();
    handlePending();
    SessionEvent event;
    while (!mQuitted && mMailbox.tryTake(event)) handle(event);
    if (!mQuitted) flush();
}

void WebSession::handle(SessionEvent& event) {
    switch (event.kind) {
    case SessionEvent::Kind::Page: {
        const std::uint64_t outer = std::exchange(mOrdinal, event.ordinal);
        handlePage(event.page);
        mOrdinal = outer;
        break;
    }
    case SessionEvent::Kind::Resource:
        serveResource(event.exchange);
        break;
    case SessionEvent::Kind::Reload:
        reload(event);
        break;
    case SessionEvent::Kind::Call:
        if (event.call) notify(OtherEvent, event.call);
        break;
    case SessionEvent::Kind::End:
        throw SessionEnded();
    }
}

// The widgets hold everything, also what was typed: they are shown once more. What the session sends between the page's
// load and this is for nobody.
void WebSession::reload(const SessionEvent& event) {
    mSink.begin(event.pageNumber);
    mRenderer.forgetAll();
    mTimers.forgetShown();
    if (!mApplication) return;
    mApplication->showAgain();
    if (mFocused) setFocused(mFocused);
    notify(OtherEvent, [this] { mApplication->refresh(); });
    if (mQuitted || event.path.empty()) return;
    const bool stays = mPage->modal() != nullptr;
    notify(UserEvent, [&] { mApplication->pathShown(event.path, stays); });
}

void WebSession::handlePage(const boost::json::value& events) {
    const boost::json::array* list = events.if_array();
    if (!list) return;
    std::size_t taken = 0;
    for (const boost::json::value& event : *list)
        if (event.is_object() && ++taken <= kMaxEventsPerMessage) mPending.push_back(event.get_object());
    handlePending();
}

void WebSession::handlePending() {
    while (!mPending.empty() && !mQuitted) {
        const boost::json::object event = std::move(mPending.front());
        mPending.pop_front();
        handleBrowserEvent(event);
    }
}

void WebSession::handleBrowserEvent(const boost::json::object& event) {
    const std::string_view kind = foreignText(event, "k");
    // What was typed travels with whatever event comes next, a timer's too: it is the user's doing.
    const boost::json::value* values = event.if_contains("v");
    const bool typed = values && values->is_object() && !values->get_object().empty();
    const EventType type = typed                ? UserEvent
                           : kind == "timer"    ? TimerEvent
                           : isBackground(kind) ? OtherEvent
                                                : UserEvent;
    notify(type, [&] { deliver(event); });
}

void WebSession::deliver(const boost::json::object& event) {
    takeFocus(event);
    takeValues(event);
    const std::string_view kind = foreignText(event, "k");
    if (kind == "timer") {
        const auto run = static_cast<std::uint32_t>(std::max(0, foreignInt(event, "t")));
        WTimer* timer = mTimers.find(run);
        if (!timer || (mOrdinal && mTimers.isOld(run, mOrdinal))) return;
        timer->fired();
        mTimers.handled(run, mMailbox.posted());
        return;
    }
    if (kind == "path")
        return mApplication->pathShown(std::string(foreignText(event, "p")), mPage->modal() != nullptr);
    const int id = foreignInt(event, "t");
    RenderNode* node = id > 0 ? mRenderer.find(static_cast<std::uint32_t>(id)) : nullptr;
    if (!node || !node->nodeAcceptsEvents()) return;
    // Sizes change behind a modal dialog too, and a field there may just be losing its focus.
    const bool harmless = isBackground(kind) || kind == "blur" || kind == "change" || kind == "scroll";
    if (!harmless && mPage->behindModal(*node)) return;
    node->browserEvent(kind, event);
}

// Values and focus are what the user had done when the event arose: they go before its handlers.
void WebSession::takeFocus(const boost::json::object& event) {
    const boost::json::value* focus = event.if_contains("f");
    if (!focus || !focus->is_number()) return;
    mFocused = static_cast<std::uint32_t>(std::max(0, foreignInt(event, "f")));
    mSelection = {-1, -1};
    const boost::json::value* selection = event.if_contains("s");
    const boost::json::array* ends = selection ? selection->if_array() : nullptr;
    if (!ends || ends->size() != 2) return;
    const int start = foreignInt(&ends->at(0), -1);
    const int end = foreignInt(&ends->at(1), -1);
    if (start >= 0 && start <= end) mSelection = {start, end};
}

void WebSession::takeValues(const boost::json::object& event) {
    const boost::json::value* values = event.if_contains("v");
    if (!values || !values->is_object()) return;
    std::size_t taken = 0;
    for (const auto& [name, value] : values->get_object()) {
        if (++taken > kMaxValues) break;
        RenderNode* node = mRenderer.find(nodeIdOf(name));
        if (node && node->nodeAcceptsEvents()) node->browserValue(value);
    }
}

void WebSession::notify(EventType type, const std::function<void()>& work) {
    if (!mApplication) return;
    WEvent::Work described{work};
    mApplication->notify(WEvent(type, &described));
}

void WebSession::quit() {
    mQuitted = true;
}

void WebSession::redirect(const std::string& url) {
    mRenderer.operation("[\"go\"," + jsonText(url) + "]");
}

void WebSession::recognised() {
    mSink.recognised();
    mRenderer.operation("[\"renew\"]");
}

void WebSession::setFocused(std::uint32_t node) {
    mFocused = node;
    mSelection = {-1, -1};
    mRenderer.operation("[\"focus\"," + std::to_string(node) + "]");
}

} // namespace Wt::Impl
