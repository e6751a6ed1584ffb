#include <Wt/WObject>
#include <Wt/WSignal>

#include <boost/bind/bind.hpp>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

struct Receiver : Wt::WObject {
    explicit Receiver(std::string& log_, Wt::WObject* parent = nullptr) : WObject(parent), log(log_) {}
    void none() { log += "n"; }
    void one(int value) { log += std::to_string(value); }
    void text(const std::string& value) { log += value; }
    void tagged(const char* tag, int value) { log += tag + std::to_string(value); }
    std::string& log;
};

TEST(Signal, gives_each_slot_as_many_arguments_as_it_takes) {
    std::string log;
    Receiver receiver(log);
    Wt::Signal<int, std::string> signal;
    signal.connect(&receiver, &Receiver::none);
    signal.connect(&receiver, &Receiver::one);
    signal.connect([&](int a, const std::string& b) { log += std::to_string(a) + b; });
    signal.connect([&] { log += "."; });
    signal.connect(boost::bind(&Receiver::tagged, &receiver, "t", boost::placeholders::_1));
    Wt::Signal<int> other;
    other.connect(&receiver, &Receiver::one);
    signal.connect(other);
    signal.emit(7, "x");
    EXPECT_EQ(log, "n77x.t77");
}

// Application code deletes the sender, and itself, inside of handlers.
TEST(Signal, survives_the_death_of_everybody_while_it_is_emitted) {
    std::string log;
    auto* signal = new Wt::Signal<>;
    auto* doomed = new Receiver(log);
    auto bound = std::make_unique<Receiver>(log);
    signal->connect([&] { log += "a"; });
    signal->connect([&] {
        delete doomed;
        bound.reset();
        log += "b";
    });
    signal->connect(doomed, &Receiver::none);
    signal->connect(boost::bind(&Receiver::none, bound.get()));
    const Wt::Signals::connection last = signal->connect([&] { log += "c"; });
    signal->connect([&] {
        delete signal;
        signal = nullptr;
    });
    signal->connect([&] { log += "never"; });
    signal->emit();
    EXPECT_EQ(log, "abc");
    EXPECT_FALSE(last.connected());
    last.disconnect();
}

TEST(Signal, changes_made_while_it_is_emitted_hold_from_then_on) {
    std::string log;
    Wt::Signal<> signal;
    Wt::Signals::connection second;
    Wt::Signals::connection first;
    first = signal.connect([&] {
        log += "1";
        second.disconnect();
        first.disconnect();
        signal.connect([&] { log += "3"; });
        if (log.size() < 4) signal.emit(); // the new slot hears the inner emission only
    });
    second = signal.connect([&] { log += "2"; });
    signal.emit();
    EXPECT_EQ(log, "13");
    log.clear();
    signal.emit();
    EXPECT_EQ(log, "3");
}

TEST(Signal, a_target_that_died_disconnects_and_blocking_is_undone) {
    std::string log;
    Wt::Signal<> signal;
    Wt::Signals::connection connection;
    {
        Receiver owner(log);
        auto* child = new Receiver(log, &owner);
        connection = signal.connect(child, &Receiver::none);
        connection.block();
        signal.emit();
        connection.unblock();
        signal.emit();
        Wt::Signal<> inner;
        inner.connect(child, &Receiver::none);
        signal.connect(inner); // dies before the next emission
    }
    signal.emit();
    EXPECT_EQ(log, "n");
    EXPECT_FALSE(connection.connected());
}

TEST(Signal, reconnecting_for_ever_keeps_nothing) {
    std::string log;
    Receiver receiver(log);
    Wt::Signal<> signal;
    Wt::Signals::connection connection;
    for (int i = 0; i < 10'000; ++i) {
        connection.disconnect();
        connection = signal.connect(&receiver, &Receiver::none);
    }
    signal.emit();
    EXPECT_EQ(log, "n");
}

} // namespace
