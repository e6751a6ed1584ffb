#pragma once

#include "server/HttpResponse.h"
#include "server/Wakeup.h"
#include "session/ResourceExchange.h"

#include <deque>
#include <mutex>
#include <optional>

namespace Wt::Impl {

/// The bridge between a session that answers and the connection that sends. Any thread on the session's side,
/// the I/O thread on the other.
class AnswerQueue {
public:
    struct Step {
        enum class Kind { Head, Data, End, Abandoned };
        Kind kind = Kind::End;
        HttpResponse head = {};
        std::int64_t contentLength = -1;
        std::string data = {};
        std::function<void(bool)> sent = {};
    };

    explicit AnswerQueue(const IoExecutor& executor)
        : mExecutor(executor), mWakeup(std::make_shared<Wakeup>(executor)) {}

    void push(Step step);
    std::optional<Step> pop();
    Awaitable<bool> wait(std::chrono::steady_clock::duration limit) { return mWakeup->wait(limit); }

    /// Nobody sends any more: what waits and what still comes gets sent(false).
    void close();

private:
    IoExecutor mExecutor;
    std::shared_ptr<Wakeup> mWakeup;
    std::mutex mMutex;
    std::deque<Step> mSteps;
    bool mClosed = false;
};

/// What the session holds. Removes the request's spool files when it goes.
class HttpExchange : public ResourceExchange {
public:
    explicit HttpExchange(std::shared_ptr<AnswerQueue> queue) : mQueue(std::move(queue)) {}
    ~HttpExchange() override;

    void start(int status, const std::vector<std::pair<std::string, std::string>>& answerHeaders,
               std::int64_t contentLength) override;
    void write(std::string data, std::function<void(bool)> sent) override;
    void finish() override;

private:
    const std::shared_ptr<AnswerQueue> mQueue;
    bool mFinished = false;
};

} // namespace Wt::Impl
