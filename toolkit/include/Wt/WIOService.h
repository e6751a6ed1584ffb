#pragma once

#include <boost/function.hpp>

#include <memory>

namespace Wt {

/// A pool of threads that runs posted and scheduled functions, outside of any session. Functions may run at
/// the same time as each other; an exception that leaves one is logged and goes no further.
class WIOService {
public:
    WIOService();

    /// Stops the pool.
    virtual ~WIOService();

    WIOService(const WIOService&) = delete;
    WIOService& operator=(const WIOService&) = delete;

    /// Number of threads; takes effect at start(). Default 2, at least 1.
    void setThreadCount(int count);
    int threadCount() const;

    /// Starts the threads. Functions may be posted before; they run from then on.
    void start();

    /// Waits for the functions that run, drops the others, ends the threads.
    /// Must not be called from one of them.
    void stop();

    /// Runs the function as soon as a thread is free. Thread-safe.
    void post(const boost::function<void()>& function);

    /// Runs the function once, that many milliseconds from now. Thread-safe.
    void schedule(int milliSeconds, const boost::function<void()>& function);

protected:
    /// Called in each new thread of the pool before anything else.
    virtual void initializeThread();

private:
    class Impl;
    std::unique_ptr<Impl> mImpl;
};

} // namespace Wt
