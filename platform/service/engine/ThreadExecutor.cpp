#include "platform/service/engine/ThreadExecutor.h"

#include <cerrno>
#include <exception>
#include <sys/eventfd.h>
#include <system_error>
#include <unistd.h>

namespace zeqd {

ThreadExecutor::ThreadExecutor() : mEvent(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
    if (mEvent < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

ThreadExecutor::~ThreadExecutor() {
    {
        const std::lock_guard lock(mMutex);
        mStop = true;
    }
    for (Worker& worker : mWorkers) {
        worker.wake.notify_all();
        if (worker.thread.joinable()) worker.thread.join();
    }
    close(mEvent);
}

void ThreadExecutor::run(Lane lane, std::function<void()> work, std::function<void()> done) {
    const std::lock_guard lock(mMutex);
    Worker& worker = mWorkers[static_cast<std::size_t>(lane)];
    worker.jobs.push_back({std::move(work), std::move(done)});
    if (!worker.thread.joinable()) worker.thread = std::thread([this, &worker] { loop(worker); });
    worker.wake.notify_one();
}

void ThreadExecutor::loop(Worker& worker) {
    std::unique_lock lock(mMutex);
    while (true) {
        worker.wake.wait(lock, [&] { return mStop || !worker.jobs.empty(); });
        if (mStop) return;
        Job job = std::move(worker.jobs.front());
        worker.jobs.pop_front();
        lock.unlock();
        try {
            job.work();
        } catch (const std::exception&) {
            // Mostly out of memory. Whoever waits finds that nothing came of it.
        }
        lock.lock();
        mFinished.push_back(std::move(job.done));
        const std::uint64_t one = 1;
        // A full counter has woken the loop already.
        [[maybe_unused]] const ssize_t written = ::write(mEvent, &one, sizeof one);
    }
}

void ThreadExecutor::drain() {
    std::uint64_t count;
    [[maybe_unused]] const ssize_t got = ::read(mEvent, &count, sizeof count);
    std::deque<std::function<void()>> finished;
    {
        const std::lock_guard lock(mMutex);
        finished.swap(mFinished);
    }
    for (const std::function<void()>& done : finished) done();
}

} // namespace zeqd
