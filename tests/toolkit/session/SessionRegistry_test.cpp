#include "session/SessionRegistry.h"

#include "core/Limits.h"
#include "tests/toolkit/support/FakeHost.h"
#include "tests/toolkit/support/TestServer.h"

#include <gtest/gtest.h>

namespace Wt::Impl {
namespace {

struct Peer : ChannelPeer {
    void wake() override {}
};

StartRequest from(const std::string& address) {
    StartRequest start;
    start.clientAddress = address;
    return start;
}

class SessionRegistryTest : public testing::Test {
protected:
    SessionRegistryTest()
        : mSessions(std::make_shared<SessionRegistry>(SessionLimits{10, 3}, makeFakeHost)) {}
    ~SessionRegistryTest() override {
        EXPECT_TRUE(mSessions->endAll(EndReason::ServerStopping, kStopDeadline));
    }

    SessionRegistry::Started start(const std::string& cookie = "") {
        return mSessions->start(from("a"), "", "/r/", cookie);
    }
    static SessionRegistry::Clock::time_point later(std::chrono::seconds time) {
        return SessionRegistry::Clock::now() + time;
    }

    std::shared_ptr<SessionRegistry> mSessions;
};

TEST_F(SessionRegistryTest, BothSecretsAreNeeded) {
    const auto one = start();
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
    const auto silent = start();
    const auto living = start();
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
    const auto left = start();
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

TEST_F(SessionRegistryTest, AnEndedSessionMakesRoomForAnother) {
    const auto first = start();
    start();
    start();
    EXPECT_EQ(start().status, 429);
    first.session->end(EndReason::PageClosed);
    EXPECT_TRUE(comesTrue([&] { return mSessions->size() == 2; }));
    EXPECT_TRUE(start().session != nullptr);
}

} // namespace
} // namespace Wt::Impl
