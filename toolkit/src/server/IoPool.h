#pragma once

#include "server/Io.h"

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace Wt::Impl {

/// The I/O threads, each with an io_context of its own.
class IoPool {
public:
    explicit IoPool(int threads);

    /// Stops, and destroys whatever was waiting, on the calling thread.
    ~IoPool();

    void start();

    /// Ends the threads; what waits stays until the pool is destroyed.
    void stop();

    /// The one whose turn it is.
    asio::io_context& next();
    asio::io_context& first() { return mLoops.front()->context; }

private:
    struct Loop {
        asio::io_context context{1}; ///< 1: run by one thread
        asio::executor_work_guard<IoExecutor> work = asio::make_work_guard(context);
        std::thread thread;
    };

    std::vector<std::unique_ptr<Loop>> mLoops;
    std::atomic<std::size_t> mTurn = 0;
};

} // namespace Wt::Impl
