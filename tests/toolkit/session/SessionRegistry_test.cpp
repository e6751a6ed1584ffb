#include "session/SessionRegistry.h"

#include "core/Limits.h"
#include "tests/toolkit/support/FakeHost.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace Wt::Impl {
namespace {

struct Peer : ChannelPeer {
    void wake() override {}
};

StartRequest from(const std::string& address) {
    StartRequest start;
    start.clientAddress = start.clientNetwork = address;
    return start;
}

class SessionRegistryTest : public testing::Test {
protected:
    SessionRegistryTest()
        : mSessions(std::make_shared<SessionRegistry>(SessionLimits{10, 3, 5}, makeFakeHost)) {}
    ~SessionRegistryTest() override {
        EXPECT_TRUE(mSessions->endAll(EndReason::ServerStopping, kStopDeadline));
    }

    SessionRegistry::Started start(const std::string& cookie = "") {
        return mSessions->start(from("a"), "", "/r/", cookie);
    }
    SessionRegistry::Started claimed(const std::string& address = "a", const std::string& cookie = "") {
        auto started = mSessions->start(from(address), "", "/r/", cookie);
        EXPECT_EQ(mSessions->claim(started.token, started.cookie), started.session);
        return started;
    }
    bool lives(const SessionRegistry::Started& started) {
        return mSessions->find(started.token, started.cookie) != nullptr &&
               !started.session->mailbox().ending();
    }
    void logIn(const SessionRegistry::Started& started) { started.session->channel().recognised(); }
    static SessionRegistry::Clock::time_point later(std::chrono::seconds time) {
        return SessionRegistry::Clock::now() + time;
    }

    std::shared_ptr<SessionRegistry> mSessions;
};

TEST_F(SessionRegistryTest, BothSecretsAreNeeded) {
    const auto one = claimed();
    const auto two = start();
    EXPECT_EQ(mSessions->find(one.token, one.cookie), one.session);
    EXPECT_EQ(mSessions->find(one.token, two.cookie), nullptr);
    EXPECT_EQ(mSessions->find(two.token, one.cookie), nullptr);
    EXPECT_EQ(mSessions->find("", ""), nullptr);
    EXPECT_EQ(mSessions->find(one.session->name(), one.cookie), nullptr);
    EXPECT_EQ(mSessions->findByName(one.session->name(), one.cookie), one.session);
    EXPECT_EQ(mSessions->findByName(one.session->name(), two.cookie), nullptr);
    EXPECT_EQ(start(one.cookie).cookie, one.cookie);
    EXPECT_NE(one.token.size(), 0u);
    EXPECT_NE(one.token, two.token);
}

TEST_F(SessionRegistryTest, SilentPagesExpireAndLivingOnesDoNot) {
    const auto unclaimed = start();
    const auto silent = claimed();
    const auto living = claimed();
    const auto peer = std::make_shared<Peer>();
    silent.session->channel().attach(peer, PageInput());
    silent.session->channel().detach(peer.get());
    living.session->channel().attach(peer, PageInput());

    mSessions->expire(later(kUnclaimedLimit - 1s));
    EXPECT_EQ(mSessions->size(), 3u);
    mSessions->expire(later(kUnclaimedLimit + 2s));
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 2; }));
    mSessions->expire(later(kSilentLimit + 2s));
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 1; }));
    EXPECT_EQ(mSessions->expire(later(std::chrono::hours(24))), 1u); // the ended ones are forgotten
    EXPECT_EQ(mSessions->findByName(living.session->name()), living.session);
    EXPECT_EQ(mSessions->findByName(silent.session->name()), nullptr);
}

TEST_F(SessionRegistryTest, APageThatWasLeftHasAWhileToComeBack) {
    const auto left = claimed();
    const auto peer = std::make_shared<Peer>();
    left.session->channel().attach(peer, PageInput());
    left.session->channel().leave(1);
    mSessions->expire(later(kSilentLimit + 2s));
    EXPECT_EQ(mSessions->size(), 1u) << "its connection still stands";
    left.session->channel().detach(peer.get());
    mSessions->expire(later(kLeftLimit - 1s));
    EXPECT_EQ(mSessions->size(), 1u);
    mSessions->expire(later(kLeftLimit + 2s));
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 0; }));
}

TEST_F(SessionRegistryTest, NothingRunsBeforeThePagesHello) {
    const int made = fakeHostCounts().made;
    const auto one = start();
    const auto other = start();
    EXPECT_EQ(mSessions->claim(one.token, other.cookie), nullptr);
    EXPECT_EQ(mSessions->findByName(one.session->name()), nullptr);
    EXPECT_EQ(fakeHostCounts().made, made);
    EXPECT_EQ(mSessions->claim(one.token, one.cookie), one.session);
    EXPECT_EQ(mSessions->claim(one.token, one.cookie), one.session); // a second hello is a reconnect
    EXPECT_TRUE(comesTrue([&] { return fakeHostCounts().made == made + 1; }));
    mSessions->end(other.session, EndReason::PageClosed);
    EXPECT_EQ(mSessions->find(other.token, other.cookie), nullptr);
    EXPECT_EQ(mSessions->size(), 1u);
}

TEST_F(SessionRegistryTest, TheOldestIdleOneWithoutAUserMakesRoom) {
    const auto peer = std::make_shared<Peer>();
    const auto user = claimed("a");
    logIn(user);
    const auto attached = claimed("b");
    attached.session->channel().attach(peer, PageInput());
    const auto left = claimed("c");
    left.session->channel().attach(peer, PageInput());
    left.session->channel().detach(peer.get());
    const auto waiting = mSessions->start(from("d"), "", "/r/", "");
    const auto later = mSessions->start(from("e"), "", "/r/", "");
    const auto active = claimed("f");
    active.session->channel().attach(peer, PageInput());

    const SessionRegistry::Started* const order[] = {&waiting, &later, &left, &attached};
    for (std::size_t gone = 0; gone < std::size(order) + 1; ++gone) {
        if (gone == 3) { // what its user did last counts, not when it came
            PageInput input;
            input.messages.push_back({1, boost::json::array{}});
            active.session->channel().receive(std::move(input));
        }
        const auto newcomer = claimed("new" + std::to_string(gone));
        newcomer.session->channel().attach(peer, PageInput());
        ASSERT_TRUE(newcomer.session);
        for (std::size_t i = 0; i < std::size(order); ++i)
            EXPECT_EQ(lives(*order[i]), i > gone) << i << " after " << gone;
    }
    EXPECT_TRUE(lives(user));
    EXPECT_TRUE(lives(active));
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 6; })); // the user and five
}

TEST_F(SessionRegistryTest, UsersAreCountedApartAndKeepTheirPlace) {
    const auto one = claimed(), two = claimed(), three = claimed();
    for (const auto* each : {&one, &two, &three}) logIn(*each);
    EXPECT_EQ(start().status, 429);
    EXPECT_NE(mSessions->start(from("b"), "", "/r/", "").session, nullptr);
    one.session->end(EndReason::PageClosed);
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 3; }));
    EXPECT_NE(start().session, nullptr);
    for (const std::string address : {"b", "c", "d", "e", "f", "g", "h", "i"}) logIn(claimed(address));
    EXPECT_EQ(mSessions->start(from("z"), "", "/r/", "").status, 503); // ten users
    EXPECT_TRUE(lives(two) && lives(three));
}

TEST_F(SessionRegistryTest, AFloodOfOneAddressTakesItsOwnRoom) {
    const auto registry = std::make_shared<SessionRegistry>(SessionLimits{10, 100, 40}, makeFakeHost);
    const auto operators = registry->start(from("operator"), "", "/r/", "");
    for (int i = 0; i < 300; ++i) registry->start(from("flood"), "", "/r/", "");
    EXPECT_EQ(registry->size(), 40u);
    EXPECT_NE(registry->claim(operators.token, operators.cookie), nullptr);
    EXPECT_TRUE(registry->endAll(EndReason::ServerStopping, kStopDeadline));
    EXPECT_EQ(registry->size(), 0u);
}

TEST_F(SessionRegistryTest, PagesOfOneBrowserThatLogInAtOnceGetOneCookie) {
    const auto one = claimed();
    const auto two = claimed("a", one.cookie);
    ASSERT_EQ(two.cookie, one.cookie);
    logIn(one);
    logIn(two);
    const auto ofOne = mSessions->renew(one.token, one.cookie);
    const auto ofTwo = mSessions->renew(two.token, one.cookie);
    EXPECT_EQ(ofOne.cookie, ofTwo.cookie);
    const auto again = mSessions->renew(one.token, ofOne.cookie); // the answer was lost, its cookie came
    EXPECT_EQ(again.cookie, ofOne.cookie);
    EXPECT_EQ(mSessions->find(ofOne.token, ofOne.cookie), nullptr);
    EXPECT_EQ(mSessions->find(again.token, ofOne.cookie), one.session); // a hello shows the token too
    EXPECT_EQ(mSessions->find(one.token, one.cookie), nullptr);
    EXPECT_EQ(mSessions->find(two.token, ofOne.cookie), two.session);
    EXPECT_EQ(mSessions->renew(ofTwo.token, ofOne.cookie).status, 204);
    EXPECT_EQ(mSessions->find(ofTwo.token, ofTwo.cookie), two.session);
    EXPECT_TRUE(mSessions->isOfUser(ofOne.cookie));
    EXPECT_FALSE(mSessions->isOfUser(one.cookie));
    logIn(two); // at the next login again
    EXPECT_NE(mSessions->renew(ofTwo.token, ofTwo.cookie).cookie, ofTwo.cookie);
}

TEST_F(SessionRegistryTest, WhatTheApplicationPostedMayAskTheServerAsItGoes) {
    const auto silent = claimed();
    const auto peer = std::make_shared<Peer>();
    silent.session->channel().attach(peer, PageInput());
    silent.session->channel().detach(peer.get());
    std::atomic<int> asked = 0;
    const auto registry = mSessions;
    const auto post = [&] {
        SessionEvent hold;
        hold.call = [] { std::this_thread::sleep_for(std::chrono::milliseconds(300)); };
        silent.session->mailbox().post(std::move(hold));
        SessionEvent event;
        const std::shared_ptr<int> fallback(new int(0), [&asked, registry, silent](const int* gone) {
            delete gone;
            registry->size();
            silent.session->channel().liveness();
            ++asked;
        });
        event.call = [fallback] {};
        silent.session->mailbox().post(std::move(event));
    };
    post();
    mSessions->expire(later(kSilentLimit + 2s)); // drops the event, and what it holds
    EXPECT_TRUE(comesTrue([&] { return asked == 1; }));

    const auto flooded = claimed();
    SessionEvent event;
    std::shared_ptr<int> fallback(new int(0), [&asked, registry, flooded](const int* gone) {
        delete gone;
        flooded.session->channel().liveness();
        ++asked;
    });
    event.call = [held = std::move(fallback)] { std::this_thread::sleep_for(std::chrono::milliseconds(1)); };
    SessionEvent hold;
    hold.call = [] { std::this_thread::sleep_for(std::chrono::milliseconds(500)); };
    flooded.session->mailbox().post(std::move(hold));
    flooded.session->mailbox().post(std::move(event));
    for (std::size_t i = 0; i + 2 < Mailbox::kMaxWaiting; ++i) flooded.session->mailbox().post({});
    PageInput input;
    for (std::uint64_t n = 1; n <= 10; ++n) input.messages.push_back({n, boost::json::array{}});
    flooded.session->channel().receive(std::move(input)); // one too many waits
    EXPECT_TRUE(comesTrue([&] { return asked == 2; }));
}

} // namespace
} // namespace Wt::Impl
