#include "shell/LoginGate.h"

#include "shell/SteadyClock.h"

#include <algorithm>
#include <chrono>
#include <fcntl.h>
#include <fstream>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace {

constexpr std::int64_t kHourMs = 3'600'000;

/// Names this start of the machine: the steady clock counts from it.
std::array<char, 40> bootId() {
    std::array<char, 40> id{};
    std::ifstream("/proc/sys/kernel/random/boot_id").read(id.data(), id.size() - 1);
    return id;
}

} // namespace

LoginGate& LoginGate::instance() {
    static LoginGate gate;
    return gate;
}

LoginGate::~LoginGate() {
    if (mKept != &mOwn) munmap(mKept, sizeof(Kept));
}

bool LoginGate::keepIn(const std::string& path) {
    const int fd = open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0) return false;
    const bool sized = ftruncate(fd, sizeof(Kept)) == 0;
    void* mapped =
        sized ? mmap(nullptr, sizeof(Kept), PROT_READ | PROT_WRITE, MAP_SHARED, fd, 0) : MAP_FAILED;
    close(fd);
    if (mapped == MAP_FAILED) return false;

    const std::lock_guard lock(mMutex);
    auto* kept = static_cast<Kept*>(mapped);
    const std::array<char, 40> boot = bootId();
    if (kept->form != kForm || kept->guesses > kGuessesAnHour) kept = new (mapped) Kept;
    kept->failures += kept->pending; // whoever was being tried when the process ended
    kept->pending = 0;
    if (kept->boot != boot) { // its times mean nothing here; a lockout begins anew rather than end
        kept->boot = boot;
        kept->guesses = 0;
        kept->lockedAt = SteadyClock_nowMs();
    }
    if (kept->failures > kFailuresAllowed && kept->locked == 0) {
        kept->locked = 1;
        kept->lockedAt = SteadyClock_nowMs();
    }
    if (mKept != &mOwn) munmap(mKept, sizeof(Kept));
    mKept = kept;
    return true;
}

bool LoginGate::lockedNow(std::int64_t now) {
    auto* const end = mKept->guessedAt.begin() + mKept->guesses;
    const auto* const young =
        std::remove_if(mKept->guessedAt.begin(), end, [now](std::int64_t at) { return now - at >= kHourMs; });
    mKept->guesses = static_cast<std::uint32_t>(young - mKept->guessedAt.begin());
    return (mKept->locked != 0 && now - mKept->lockedAt < kLockoutMs) || mKept->guesses >= kGuessesAnHour;
}

LoginGate::Answer LoginGate::enter(std::int64_t& time) {
    std::unique_lock lock(mMutex);
    const auto patience = std::chrono::steady_clock::now() + std::chrono::milliseconds(kLongestWaitMs);
    while (true) {
        time = SteadyClock_nowMs();
        if (lockedNow(time)) return Answer::Locked;
        // With as many in work as may still fail, the next one's turn depends on what becomes of them.
        if (mKept->pending == 0 || mKept->failures + mKept->pending <= kFailuresAllowed) break;
        if (mLeft.wait_until(lock, patience) == std::cv_status::timeout) return Answer::Busy;
    }
    ++mKept->pending;
    mKept->guessedAt[mKept->guesses++] = time;
    return Answer::Open;
}

void LoginGate::leave(bool good, std::int64_t time) {
    const std::lock_guard lock(mMutex);
    --mKept->pending;
    if (good) {
        mKept->failures = 0;
        mKept->locked = 0;
        auto* const end = mKept->guessedAt.begin() + mKept->guesses;
        if (auto* const own = std::find(mKept->guessedAt.begin(), end, time); own != end) {
            std::copy(own + 1, end, own); // it was no guess
            --mKept->guesses;
        }
    } else if (++mKept->failures > kFailuresAllowed) {
        mKept->locked = 1;
        mKept->lockedAt = SteadyClock_nowMs();
    }
    mLeft.notify_all();
}

void LoginGate::forgetCount() {
    const std::lock_guard lock(mMutex);
    mKept->failures = 0;
}

void LoginGate::forgetAll() {
    const std::lock_guard lock(mMutex);
    mKept->failures = mKept->locked = mKept->guesses = 0;
}

std::uint32_t LoginGate::failures() {
    const std::lock_guard lock(mMutex);
    return mKept->failures;
}
