// One thread per lane, started with the lane's first work. The event loop watches fd()
// and then calls drain().
#pragma once

#include "platform/service/engine/Seams.h"

#include <array>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace zeqd {

class ThreadExecutor : public Executor {
public:
    ThreadExecutor();
    /// Waits for the work in hand; work that has not begun is dropped.
    ~ThreadExecutor() override;
    ThreadExecutor(const ThreadExecutor&) = delete;
    ThreadExecutor& operator=(const ThreadExecutor&) = delete;

    int fd() const { return mEvent; }
    /// Runs what is done. On the event loop's thread.
    void drain();

    void run(Lane lane, std::function<void()> work, std::function<void()> done) override;

private:
    struct Job {
        std::function<void()> work;
        std::function<void()> done;
    };
    struct Worker {
        std::thread thread;
        std::deque<Job> jobs;
        std::condition_variable wake;
    };
    void loop(Worker& worker);

    int mEvent;
    std::mutex mMutex; ///< over the workers' jobs, the finished ones and mStop
    std::array<Worker, kLaneCount> mWorkers;
    std::deque<std::function<void()>> mFinished;
    bool mStop = false;
};

} // namespace zeqd
