#include "session/Channel.h"

#include "core/Limits.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

namespace Wt::Impl {
namespace {

struct Peer : ChannelPeer {
    void wake() override { ++woken; }
    std::atomic<int> woken = 0;
};

PageInput input(std::vector<std::uint64_t> numbers, std::uint64_t ack = 0) {
    PageInput made;
    made.ack = ack;
    for (const std::uint64_t number : numbers) made.messages.push_back({number, boost::json::array()});
    return made;
}

std::size_t waiting(Mailbox& mailbox) {
    std::size_t count = 0;
    for (SessionEvent event; mailbox.tryTake(event) && event.kind == SessionEvent::Kind::Page;) ++count;
    return count;
}

TEST(Channel, HandsEveryMessageOnOnceAndInOrder) {
    Mailbox mailbox;
    Channel channel(mailbox);
    using Verdict = Channel::Verdict;
    EXPECT_EQ(channel.receive(input({1, 2})), Verdict::Taken);
    EXPECT_EQ(channel.receive(input({1, 2, 3})), Verdict::Taken);
    EXPECT_EQ(channel.receive(input({2})), Verdict::Taken);
    EXPECT_EQ(waiting(mailbox), 3u);
    EXPECT_EQ(channel.receive(input({5})), Verdict::Gap);
    EXPECT_EQ(waiting(mailbox), 0u);
    EXPECT_EQ(channel.acknowledgement(), R"({"ack":3})");
}

TEST(Channel, SendsAgainWhatIsNotAcknowledged) {
    Mailbox mailbox;
    Channel channel(mailbox);
    const auto first = std::make_shared<Peer>();
    channel.attach(first, input({}));
    for (const char* operations : {"[1]", "[2]", "[3]"}) channel.send(operations);
    EXPECT_EQ(first->woken, 3);
    std::uint64_t cursor = 0;
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":1,"ack":0,"o":[1]})");
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":2,"ack":0,"o":[2]})");
    channel.receive(input({1}, 1));

    const auto second = std::make_shared<Peer>();
    channel.attach(second, input({}, 1));
    EXPECT_EQ(first->woken, 4); // so that it notices
    EXPECT_FALSE(channel.isAttached(first.get()));
    channel.detach(first.get()); // late, and of no consequence
    EXPECT_TRUE(channel.isAttached(second.get()));
    cursor = 0;
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":2,"ack":1,"o":[2]})");
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":3,"ack":1,"o":[3]})");
    EXPECT_FALSE(channel.next(cursor));
    channel.receive(input({}, 99)); // more than was sent
    channel.send("[4]");
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":4,"ack":1,"o":[4]})");
}

PageInput hello(std::uint64_t page, const char* path = "") {
    PageInput made;
    made.page = page;
    made.path = path;
    return made;
}

TEST(Channel, APageLoadedAnewBeginsAnew) {
    Mailbox mailbox;
    Channel channel(mailbox);
    const auto before = std::make_shared<Peer>(), after = std::make_shared<Peer>();
    ASSERT_TRUE(channel.attach(before, hello(1)));
    channel.send("[1]");
    channel.receive(input({1, 2}, 1));
    channel.send("[2]");
    waiting(mailbox);
    channel.leave(1);
    EXPECT_TRUE(channel.liveness().left);

    ASSERT_TRUE(channel.attach(after, hello(2, "/devices")));
    EXPECT_FALSE(channel.liveness().left) << "it came back";
    channel.leave(1);
    EXPECT_FALSE(channel.liveness().left) << "a farewell that came late";
    EXPECT_EQ(channel.receive(input({3})), Channel::Verdict::Gap) << "of the page before";
    SessionEvent event;
    ASSERT_TRUE(mailbox.tryTake(event));
    EXPECT_EQ(event.kind, SessionEvent::Kind::Reload);
    EXPECT_EQ(event.path, "/devices");
    std::uint64_t cursor = 0;
    EXPECT_FALSE(channel.next(cursor));
    channel.send("[\"old\"]");
    EXPECT_FALSE(channel.next(cursor)) << "made before the session heard of the new page";
    channel.begin(1);
    channel.send("[\"old\"]");
    EXPECT_FALSE(channel.next(cursor)) << "of another reload, before this one";
    channel.begin(event.pageNumber);
    channel.send("[\"new\"]");
    EXPECT_EQ(channel.next(cursor)->text, R"({"n":1,"ack":0,"o":["new"]})");
    PageInput first = input({1});
    first.page = 2;
    EXPECT_EQ(channel.receive(first), Channel::Verdict::Taken);
    EXPECT_EQ(waiting(mailbox), 1u);

    EXPECT_TRUE(channel.attach(after, hello(2))) << "another connection of the same page";
    EXPECT_FALSE(mailbox.tryTake(event)) << "is no reload";
    EXPECT_FALSE(channel.attach(before, hello(1))) << "the page before cannot take it back";
    EXPECT_TRUE(channel.isAttached(after.get()));
    channel.close("expired");
    EXPECT_FALSE(channel.attach(before, hello(3))) << "nothing to go on with";
    EXPECT_TRUE(channel.attach(after, hello(2))) << "but its own page hears the last word";
}

TEST(Channel, LastWordsWaitForThePageToReturn) {
    Mailbox mailbox;
    Channel finished(mailbox);
    finished.send("[1]");
    finished.finish("[2]");
    finished.send("[3]");
    finished.close("quit");
    EXPECT_FALSE(finished.liveness().delivered);
    std::uint64_t cursor = 0;
    EXPECT_EQ(finished.next(cursor)->text, R"({"n":1,"ack":0,"o":[1]})");
    EXPECT_EQ(finished.next(cursor)->text, R"({"n":2,"ack":0,"o":[2]})");
    const auto end = finished.next(cursor);
    EXPECT_EQ(end->text, R"({"end":2})");
    EXPECT_TRUE(end->last);
    finished.receive(input({}, 2));
    EXPECT_TRUE(finished.liveness().delivered);

    Channel broken(mailbox);
    broken.close("failed");
    cursor = 0;
    EXPECT_EQ(broken.next(cursor)->text, R"({"gone":"failed"})");
}

TEST(Channel, AStuckBrowserEndsTheSession) {
    Mailbox mailbox;
    Channel channel(mailbox);
    const std::string large(kOutputQueueBytes / 4, 'x');
    for (int i = 0; i < 4; ++i) channel.send(large);
    EXPECT_FALSE(mailbox.ending());
    channel.send("x");
    EXPECT_EQ(mailbox.endReason(), EndReason::Overload);
}

} // namespace
TEST(Channel, SaysHowLongTheSessionHasBeenAtOneEvent) {
    Mailbox mailbox;
    const Channel channel(mailbox);
    const auto busy = [&] { return channel.acknowledgement().find("busy") != std::string::npos; };
    mailbox.post({});
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_FALSE(busy()) << "what waits has not been begun";
    mailbox.take();
    while (!busy()) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(channel.acknowledgement().substr(0, 16), R"({"ack":0,"busy":)");
    mailbox.post({});
    mailbox.take();
    EXPECT_LT(mailbox.busy(), std::chrono::hours(1));
    std::thread session([&] { mailbox.take(); });
    while (mailbox.busy() > std::chrono::milliseconds(0)) std::this_thread::yield();
    EXPECT_FALSE(busy()) << "it waits for the next one";
    mailbox.post({});
    session.join();
}

} // namespace Wt::Impl
