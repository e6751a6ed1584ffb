#include "server/IoPool.h"

#include "core/Log.h"

#include <pthread.h>

namespace Wt::Impl {

IoPool::IoPool(int threads) {
    for (int i = 0; i < threads; ++i) mLoops.push_back(std::make_unique<Loop>());
}

IoPool::~IoPool() {
    stop();
}

void IoPool::stop() {
    for (const auto& loop : mLoops) loop->context.stop();
    for (const auto& loop : mLoops)
        if (loop->thread.joinable()) loop->thread.join();
}

void IoPool::start() {
    for (const auto& loop : mLoops) {
        loop->thread = std::thread([&context = loop->context] {
            pthread_setname_np(pthread_self(), "wt-io");
            while (!context.stopped()) {
                try {
                    context.run();
                } catch (const std::exception& error) {
                    log(LogLevel::Error, "server", error.what()); // one connection's fault ends no other
                }
            }
        });
    }
}

asio::io_context& IoPool::next() {
    return mLoops[mTurn++ % mLoops.size()]->context;
}

} // namespace Wt::Impl
