#pragma once

#include <array>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>

/// Failed logins over all sessions and names: five in a row lock the door for five minutes, and no more than 60
/// guesses are tried in an hour, however they are spread. Every attempt counts as a failure from before the
/// service is asked, so many at once get no further than one after the other. Any thread may call.
class LoginGate {
public:
    static constexpr std::uint32_t kFailuresAllowed = 4; ///< more in a row begin a lockout
    static constexpr std::int64_t kLockoutMs = 300'000;
    static constexpr std::size_t kGuessesAnHour = 60;
    static constexpr int kLongestWaitMs = 3000;

    enum class Answer {
        Open,
        Locked,
        Busy ///< others' attempts are still being tried, for longer than anybody is to wait
    };

    /// One attempt; a failure unless succeeded() was called.
    class Attempt {
    public:
        explicit Attempt(LoginGate& gate) : mGate(gate), mAnswer(gate.enter(mTime)) {}
        ~Attempt() {
            if (mAnswer == Answer::Open) mGate.leave(mGood, mTime);
        }
        Attempt(const Attempt&) = delete;
        Attempt& operator=(const Attempt&) = delete;

        Answer answer() const { return mAnswer; }
        void succeeded() { mGood = true; }

    private:
        LoginGate& mGate;
        std::int64_t mTime = 0;
        Answer mAnswer;
        bool mGood = false;
    };

    LoginGate() = default;
    ~LoginGate();
    LoginGate(const LoginGate&) = delete;
    LoginGate& operator=(const LoginGate&) = delete;

    /// The process's own.
    static LoginGate& instance();

    /// Keeps the count in this file from now on, and goes on from what an earlier process left there. False when
    /// the file cannot be used; the count then ends with the process.
    bool keepIn(const std::string& path);
    /// The user has been told of the lockout: the count begins anew, the lockout stays.
    void forgetCount();
    /// As after a good login, and no guess remembered.
    void forgetAll();
    std::uint32_t failures();

private:
    /// As it stands in the file. Times are milliseconds of the machine's steady clock, which begins anew with `boot`.
    struct Kept {
        std::array<char, 8> form = kForm;
        std::array<char, 40> boot{};
        std::uint32_t failures = 0;
        std::uint32_t pending = 0; ///< being tried
        std::int64_t lockedAt = 0;
        std::uint32_t locked = 0; ///< 1: since lockedAt
        std::uint32_t guesses = 0;
        std::array<std::int64_t, kGuessesAnHour> guessedAt{}; ///< the first `guesses` of it count
    };
    static constexpr std::array<char, 8> kForm = {'m', 'i', 'r', 'l', 'g', 'a', 't', '1'};

    Answer enter(std::int64_t& time);
    void leave(bool good, std::int64_t time);
    bool lockedNow(std::int64_t now);

    std::mutex mMutex; // guards all below
    std::condition_variable mLeft;
    Kept mOwn;
    Kept* mKept = &mOwn; // or the file, mapped
};
