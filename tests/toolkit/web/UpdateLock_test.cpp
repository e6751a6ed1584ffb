// Other threads in a session: between its events, one at a time, and never after its end.
#include "tests/toolkit/support/PageSession.h"

#include <Wt/WDialog>
#include <Wt/WText>

#include <gtest/gtest.h>

#include <future>
#include <thread>

using namespace toolkit_test;

namespace {

/// A session that runs on a thread of its own, as the server has them.
class RunningSession {
public:
    RunningSession() {
        mStart.create = [this](const Wt::WEnvironment& environment) {
            auto* made = new Wt::WApplication(environment);
            mMade.set_value(made);
            return made;
        };
        mThread = std::thread([this] { Wt::Impl::makeSessionHost(mStart, mailbox, sink, "/r")->run(); });
        application = mMade.get_future().get();
    }
    ~RunningSession() { end(); }

    void end() {
        if (!mThread.joinable()) return;
        Wt::Impl::SessionEvent event;
        event.kind = Wt::Impl::SessionEvent::Kind::End;
        mailbox.post(std::move(event));
        mThread.join();
    }
    void join() { mThread.join(); }
    void call(std::function<void()> work) {
        Wt::Impl::SessionEvent event;
        event.call = std::move(work);
        mailbox.post(std::move(event));
    }

    Recorder sink; // used by whoever has the session
    Wt::Impl::Mailbox mailbox;
    Wt::WApplication* application = nullptr;

private:
    Wt::Impl::StartRequest mStart = startRequest();
    std::promise<Wt::WApplication*> mMade;
    std::thread mThread;
};

TEST(UpdateLock, ThreadsTakeTurnsWithTheSessionAndWithEachOther) {
    constexpr int kThreads = 4, kTurns = 200;
    std::promise<void> done; // outlives the session, whose thread fulfils it
    RunningSession session;
    int turns = 0; // without an atomic: the lock is what protects it
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            for (int turn = 0; turn < kTurns; ++turn) {
                Wt::WApplication::UpdateLock lock(session.application);
                ASSERT_TRUE(lock);
                ASSERT_EQ(Wt::WApplication::instance(), session.application);
                const Wt::WApplication::UpdateLock again = session.application->getUpdateLock();
                ASSERT_TRUE(again);
                auto* text = new Wt::WText("x", session.application->root());
                if (turn % 50) delete text;
                if (turn % 20 == 0) session.application->triggerUpdate();
                ++turns;
            }
            ASSERT_EQ(Wt::WApplication::instance(), nullptr);
        });
    for (int turn = 0; turn < kTurns; ++turn)
        session.call([&] {
            delete new Wt::WText("y", session.application->root());
            ++turns;
        });
    for (auto& thread : threads) thread.join();
    {
        Wt::WApplication::UpdateLock lock(session.application);
        EXPECT_EQ(session.application->root()->count(), kThreads * kTurns / 50);
    }
    session.call([&] { done.set_value(); }); // behind all calls
    done.get_future().wait();
    session.end();
    EXPECT_EQ(turns, (kThreads + 1) * kTurns);
    // What the threads made has arrived: the page would have refused ids that are there twice.
    EXPECT_NE(session.sink.page.outline().find("span"), std::string::npos);
}

TEST(UpdateLock, EndsADialogThatTheSessionWaitsFor) {
    std::promise<Wt::WDialog*> opened;
    std::promise<int> closed;
    RunningSession session;
    session.call([&] {
        Wt::WDialog dialog("d");
        opened.set_value(&dialog);
        closed.set_value(dialog.exec());
    });
    Wt::WDialog* dialog = opened.get_future().get();
    {
        Wt::WApplication::UpdateLock lock(session.application); // not before exec() waits
        ASSERT_TRUE(lock);
        dialog->accept();
    }
    EXPECT_EQ(closed.get_future().get(), Wt::WDialog::Accepted);
}

TEST(UpdateLock, IsNotGrantedForWhatHasEnded) {
    std::promise<void> begun, release;
    RunningSession session;
    EXPECT_FALSE(Wt::WApplication::UpdateLock(nullptr));
    session.call([&] {
        begun.set_value();
        release.get_future().wait();
        session.application->quit();
    });
    begun.get_future().wait();
    std::thread late([&] { // asks while the session is in its last handler, or after it
        EXPECT_FALSE(Wt::WApplication::UpdateLock(session.application));
        EXPECT_EQ(Wt::WApplication::instance(), nullptr);
    });
    release.set_value();
    session.join();
    late.join();
    EXPECT_FALSE(Wt::WApplication::UpdateLock(session.application));
}

} // namespace
