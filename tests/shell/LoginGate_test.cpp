// How many guesses get through, at once, spread out, and over a restart.

#include "shell/LoginGate.h"
#include "tests/platform/support/TempFolder.h"
#include "tests/shell/AppSession.h"

#include <gtest/gtest.h>

#include <latch>
#include <list>
#include <thread>

namespace {

using Answer = LoginGate::Answer;

Answer guess(LoginGate& gate) {
    return LoginGate::Attempt(gate).answer();
}

void succeed(LoginGate& gate) {
    LoginGate::Attempt attempt(gate);
    ASSERT_EQ(attempt.answer(), Answer::Open);
    attempt.succeeded();
}

TEST(LoginGate, AHundredGuessesAtOnceAreFive) {
    TestClock clock;
    LoginGate gate;
    std::latch start(100);
    std::atomic<int> tried{0};
    std::list<std::jthread> guessers;
    for (int i = 0; i < 100; ++i)
        guessers.emplace_back([&] {
            start.arrive_and_wait();
            const LoginGate::Attempt attempt(gate);
            if (attempt.answer() == Answer::Open) ++tried;
            std::this_thread::yield(); // the service thinks about it
        });
    guessers.clear();
    EXPECT_EQ(tried, 5);
    EXPECT_EQ(guess(gate), Answer::Locked);
}

TEST(LoginGate, OthersWaitForWhatIsBeingTriedAndOneGoodLoginLetsThemOn) {
    TestClock clock;
    LoginGate gate;
    {
        std::list<LoginGate::Attempt> inWork;
        for (int i = 0; i < 5; ++i) EXPECT_EQ(inWork.emplace_back(gate).answer(), Answer::Open);
        std::thread sixth([&] { EXPECT_EQ(guess(gate), Answer::Open); });
        inWork.front().succeeded();
        inWork.pop_front();
        sixth.join();
    }
    EXPECT_EQ(guess(gate), Answer::Locked) << "four of the first five, and the sixth";
}

TEST(LoginGate, NoPatternTriesMoreThanSixtyInAnyHour) {
    struct {
        const char* what;
        int stepSec;
        int goodEvery; ///< somebody logs in rightly before each so-manieth guess, 0 = never
        bool told;     ///< the box of the lockout is seen
    } rows[] = {
        {"flood", 1, 0, true}, {"flood, never told", 1, 0, false},       {"between good logins", 1, 4, true},
        {"slow", 30, 3, true}, {"just after the lockout", 299, 0, true}, {"one in 13 s", 13, 0, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        TestClock clock;
        LoginGate gate;
        std::vector<int> tried;
        for (int sec = 0, n = 1; sec < 4 * 3600; sec += row.stepSec, ++n) {
            if (row.goodEvery && n % row.goodEvery == 0) {
                LoginGate::Attempt good(gate);
                if (good.answer() == Answer::Open) good.succeeded();
            }
            const Answer answer = guess(gate);
            if (answer == Answer::Open) tried.push_back(sec);
            if (answer == Answer::Locked && row.told) gate.forgetCount();
            clock.advance(row.stepSec);
        }
        EXPECT_GT(tried.size(), 4u) << "the door opens again";
        for (std::size_t i = 60; i < tried.size(); ++i) EXPECT_GE(tried[i] - tried[i - 60], 3600) << i;
    }
}

TEST(LoginGate, GoodLoginsAreNoGuesses) {
    TestClock clock;
    LoginGate gate;
    for (int i = 0; i < 200; ++i) succeed(gate);
    EXPECT_EQ(guess(gate), Answer::Open);
    succeed(gate);
    EXPECT_EQ(gate.failures(), 0u);
}

TEST(LoginGate, ARestartForgetsNothing) {
    TestClock clock;
    const TempFolder folder;
    const std::string path = folder.path() / "gate";
    const auto kept = [&](auto&& check) {
        LoginGate gate;
        ASSERT_TRUE(gate.keepIn(path));
        check(gate);
    };
    for (int i = 0; i < 5; ++i) kept([](LoginGate& gate) { EXPECT_EQ(guess(gate), Answer::Open); });
    clock.advance(299);
    kept([](LoginGate& gate) { EXPECT_EQ(guess(gate), Answer::Locked); });
    clock.advance(1);
    kept([](LoginGate& gate) { succeed(gate); });
    kept([](LoginGate& gate) { EXPECT_EQ(gate.failures(), 0u); });
    kept([&](LoginGate& gate) { // the process is killed while an attempt is being tried
        const LoginGate::Attempt attempt(gate);
        std::filesystem::copy_file(path, folder.path() / "killed");
    });
    LoginGate next;
    ASSERT_TRUE(next.keepIn(folder.path() / "killed"));
    EXPECT_EQ(next.failures(), 1u);
    EXPECT_FALSE(LoginGate().keepIn(folder.path() / "missing/gate"));
}

} // namespace
