#include "session/Session.h"

#include "core/Limits.h"
#include "core/Log.h"
#include "core/OrderedRows.h"

#include <system_error>

namespace Wt::Impl {

namespace {

// Sanitizers multiply the size of a stack frame.
#ifdef MIRL_SANITIZED
constexpr std::size_t kStackFactor = 8;
#else
constexpr std::size_t kStackFactor = 1;
#endif

struct ThreadArgument {
    std::shared_ptr<Session> session;
};

} // namespace

const char* endReasonName(EndReason reason) {
    constexpr RowOf<EndReason, const char*> kNames[] = {
        {EndReason::Quit, "quit"},         {EndReason::PageClosed, "closed"},
        {EndReason::Expired, "expired"},   {EndReason::ServerStopping, "stopping"},
        {EndReason::Overload, "overload"}, {EndReason::Displaced, "displaced"},
    };
    static_assert(coversInOrder(kNames, EndReason::Displaced));
    return kNames[static_cast<std::size_t>(reason)].is;
}

Session::Session(HostFactory makeHost, StartRequest start, std::string resourceBase)
    : mMakeHost(std::move(makeHost)), mStart(std::move(start)), mResourceBase(std::move(resourceBase)) {}

void Session::run(std::function<void(const std::shared_ptr<Session>&)> ended,
                  std::function<void()> recognised) {
    mOnEnd = std::move(ended);
    mChannel.onRecognised = std::move(recognised);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, kSessionStack * kStackFactor);
    auto argument = std::make_unique<ThreadArgument>(ThreadArgument{shared_from_this()});
    const int failure = pthread_create(&mThread, &attributes, &Session::threadMain, argument.get());
    pthread_attr_destroy(&attributes);
    if (failure != 0) throw std::system_error(failure, std::generic_category(), "no thread for a session");
    argument.release();
}

void Session::join() {
    pthread_join(mThread, nullptr);
}

void Session::end(EndReason reason) {
    SessionEvent event;
    event.kind = SessionEvent::Kind::End;
    event.reason = reason;
    mMailbox.post(std::move(event));
}

void* Session::threadMain(void* argument) {
    const std::unique_ptr<ThreadArgument> owned(static_cast<ThreadArgument*>(argument));
    const std::shared_ptr<Session> session = std::move(owned->session);
    pthread_setname_np(pthread_self(), "wt-session");
    session->runHost();
    session->mEnded = true;
    const auto ended = std::move(session->mOnEnd);
    ended(session);
    return nullptr;
}

void Session::runHost() {
    const char* reason = "failed";
    try {
        const auto host = mMakeHost(mStart, mMailbox, mChannel, mResourceBase);
        host->run();
        reason = mMailbox.ending() ? endReasonName(mMailbox.endReason()) : endReasonName(EndReason::Quit);
    } catch (const std::exception& error) {
        log(LogLevel::Error, "session " + name(), error.what());
    } catch (...) {
        log(LogLevel::Error, "session " + name(), "ended by an unknown exception");
    }
    end(EndReason::Quit); // refuses whatever is still posted, and answers the resource requests that wait
    mChannel.close(reason);
}

} // namespace Wt::Impl
