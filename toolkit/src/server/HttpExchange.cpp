#include "server/HttpExchange.h"

#include <boost/asio/post.hpp>

#include <algorithm>
#include <array>
#include <string_view>

#include <unistd.h>

namespace Wt::Impl {

namespace {

// The connection's own business, or the same on every answer.
constexpr std::array<std::string_view, 6> kReserved = {
    "content-length", "transfer-encoding", "connection", "date", "content-security-policy", "set-cookie"};

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char x, char y) { return (x | 32) == (y | 32); });
}

} // namespace

void AnswerQueue::push(Step step) {
    {
        const std::lock_guard lock(mMutex);
        if (!mClosed) {
            mSteps.push_back(std::move(step));
            mWakeup->signal();
            return;
        }
    }
    if (step.sent) asio::post(mExecutor, [sent = std::move(step.sent)] { sent(false); });
}

std::optional<AnswerQueue::Step> AnswerQueue::pop() {
    const std::lock_guard lock(mMutex);
    if (mSteps.empty()) return std::nullopt;
    std::optional<Step> step = std::move(mSteps.front());
    mSteps.pop_front();
    return step;
}

void AnswerQueue::close() {
    std::deque<Step> unsent;
    {
        const std::lock_guard lock(mMutex);
        mClosed = true;
        unsent.swap(mSteps);
    }
    for (const Step& step : unsent)
        if (step.sent) step.sent(false);
}

HttpExchange::~HttpExchange() {
    if (!mFinished) {
        AnswerQueue::Step abandoned;
        abandoned.kind = AnswerQueue::Step::Kind::Abandoned;
        mQueue->push(std::move(abandoned));
    }
    for (const SpooledFile& file : files)
        if (!file.stolen) ::unlink(file.spoolPath.c_str());
}

void HttpExchange::start(int status, const std::vector<std::pair<std::string, std::string>>& answerHeaders,
                         std::int64_t contentLength) {
    AnswerQueue::Step step;
    step.kind = AnswerQueue::Step::Kind::Head;
    step.contentLength = contentLength;
    step.head.status = status;
    bool tellsCaching = false;
    for (const auto& [name, value] : answerHeaders) {
        const bool reserved = std::any_of(kReserved.begin(), kReserved.end(), [&](std::string_view own) {
            return equalsIgnoringCase(name, own);
        });
        if (reserved || !isHeaderSafe(name, value)) continue;
        tellsCaching = tellsCaching || equalsIgnoringCase(name, "cache-control");
        step.head.add(name, value);
    }
    if (!tellsCaching) step.head.add("Cache-Control", "no-store");
    mQueue->push(std::move(step));
}

void HttpExchange::write(std::string data, std::function<void(bool)> sent) {
    AnswerQueue::Step step;
    step.kind = AnswerQueue::Step::Kind::Data;
    step.data = std::move(data);
    step.sent = std::move(sent);
    mQueue->push(std::move(step));
}

void HttpExchange::finish() {
    if (mFinished) return;
    mFinished = true;
    mQueue->push({});
}

} // namespace Wt::Impl
