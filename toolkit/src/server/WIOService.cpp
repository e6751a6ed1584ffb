#include <Wt/WIOService.h>

#include "core/Log.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>
#include <vector>

namespace Wt {

namespace asio = boost::asio;

class WIOService::Impl {
public:
    void run() {
        while (!context->stopped()) {
            try {
                context->run();
            } catch (const std::exception& error) {
                Wt::Impl::log(Wt::Impl::LogLevel::Error, "io service", error.what());
            } catch (...) {
                Wt::Impl::log(Wt::Impl::LogLevel::Error, "io service", "unknown exception");
            }
        }
    }

    int threadCount = 2;
    std::unique_ptr<asio::io_context> context = std::make_unique<asio::io_context>();
    std::optional<asio::executor_work_guard<asio::io_context::executor_type>> work;
    std::vector<std::thread> threads;
};

WIOService::WIOService() : mImpl(std::make_unique<Impl>()) {}

WIOService::~WIOService() {
    stop();
}

void WIOService::setThreadCount(int count) {
    mImpl->threadCount = std::max(1, count);
}

int WIOService::threadCount() const {
    return mImpl->threadCount;
}

void WIOService::start() {
    if (!mImpl->threads.empty()) return;
    mImpl->work.emplace(mImpl->context->get_executor());
    for (int i = 0; i < mImpl->threadCount; ++i) {
        mImpl->threads.emplace_back([this] {
            initializeThread();
            mImpl->run();
        });
    }
}

void WIOService::stop() {
    mImpl->context->stop();
    for (std::thread& thread : mImpl->threads) thread.join();
    mImpl->threads.clear();
    mImpl->work.reset();
    mImpl->context = std::make_unique<asio::io_context>(); // drops what was waiting
}

void WIOService::post(const boost::function<void()>& function) {
    asio::post(*mImpl->context, function);
}

void WIOService::schedule(int milliSeconds, const boost::function<void()>& function) {
    const auto timer =
        std::make_shared<asio::steady_timer>(*mImpl->context, std::chrono::milliseconds(milliSeconds));
    timer->async_wait([timer, function](const boost::system::error_code& ec) {
        if (!ec) function();
    });
}

void WIOService::initializeThread() {}

} // namespace Wt
