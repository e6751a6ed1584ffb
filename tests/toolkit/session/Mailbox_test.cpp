#include "session/Mailbox.h"

#include "session/ResourceExchange.h"

#include <gtest/gtest.h>

#include <thread>

namespace Wt::Impl {
namespace {

SessionEvent call(std::function<void()> function) {
    SessionEvent event;
    event.call = std::move(function);
    return event;
}

SessionEvent end(EndReason reason) {
    SessionEvent event;
    event.kind = SessionEvent::Kind::End;
    event.reason = reason;
    return event;
}

TEST(Mailbox, EndIsStickyDropsWhatWaitsAndKeepsTheFirstReason) {
    Mailbox mailbox;
    const auto witness = std::make_shared<int>();
    mailbox.post(call([witness] {}));
    EXPECT_EQ(witness.use_count(), 2);
    mailbox.post(end(EndReason::PageClosed));
    EXPECT_EQ(witness.use_count(), 1);
    mailbox.post(end(EndReason::Expired));
    mailbox.post(call([witness] {}));
    EXPECT_EQ(witness.use_count(), 1);
    for (int i = 0; i < 3; ++i) {
        const SessionEvent event = mailbox.take();
        EXPECT_EQ(event.kind, SessionEvent::Kind::End);
        EXPECT_EQ(event.reason, EndReason::PageClosed);
    }
}

TEST(Mailbox, ASessionTooFarBehindEnds) {
    Mailbox mailbox;
    for (std::size_t i = 0; i < Mailbox::kMaxWaiting; ++i) mailbox.post(call([] {}));
    EXPECT_FALSE(mailbox.ending());
    mailbox.post(call([] {}));
    EXPECT_EQ(mailbox.take().reason, EndReason::Overload);
}

TEST(Mailbox, KeepsTheOrderOfEachPosterAndWakesTheTaker) {
    Mailbox mailbox;
    constexpr int kEach = 2000;
    std::vector<std::thread> posters;
    for (int poster = 0; poster < 2; ++poster) {
        posters.emplace_back([&mailbox, poster] {
            for (int i = 0; i < kEach; ++i) {
                SessionEvent event;
                event.kind = SessionEvent::Kind::Page;
                event.page = poster * kEach + i;
                mailbox.post(std::move(event));
            }
        });
    }
    int next[2] = {0, kEach};
    for (int i = 0; i < 2 * kEach; ++i) {
        const int number = static_cast<int>(mailbox.take().page.as_int64());
        EXPECT_EQ(number, next[number / kEach]++);
    }
    for (std::thread& poster : posters) poster.join();
    SessionEvent none;
    EXPECT_FALSE(mailbox.tryTake(none));
}

} // namespace
} // namespace Wt::Impl
