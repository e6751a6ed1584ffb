#pragma once

#include <Wt/Impl/Slots.h>
#include <Wt/WGlobal.h>
#include <Wt/WObject.h>

#include <tuple>

namespace Wt {

namespace Signals {

/// Names one connection; copies name the same. Outlives signal and target.
class connection {
public:
    connection() = default;
    explicit connection(Impl::SlotBase* slot);
    connection(const connection& other);
    connection& operator=(const connection& other);
    ~connection();

    void disconnect() const;
    bool connected() const;
    void block(bool should_block = true);
    void unblock() { block(false); }
    bool blocked() const;

    bool operator==(const connection& other) const { return mSlot == other.mSlot; }
    bool operator<(const connection& other) const { return mSlot < other.mSlot; }

private:
    Impl::SlotBase* mSlot = nullptr;
};

} // namespace Signals

/// Base of all signals: one pointer, made at the first connection.
class SignalBase {
public:
    SignalBase(const SignalBase&) = delete;
    SignalBase& operator=(const SignalBase&) = delete;
    virtual ~SignalBase();

    bool isConnected() const;

protected:
    SignalBase() = default;
    Signals::connection add(Impl::SlotBase* slot);
    Impl::SlotList* list() const { return mSlots; }
    /// The list, made if there is none yet.
    Impl::SlotList* ensureList();

private:
    virtual void connectionsChanged() {}

    Impl::SlotList* mSlots = nullptr;
};

namespace Impl {

/// What Signal and EventSignal have in common: connecting and emitting.
template <typename... A>
class SignalOf : public SignalBase {
public:
    /// `function` takes the arguments of the signal or the first few of them. Objects bound by boost::bind
    /// are followed: their deletion disconnects.
    template <typename F>
    requires(!std::is_base_of_v<SignalBase, std::remove_cvref_t<F>>) Signals::connection
        connect(const F& function) {
        auto* slot = new Slot<A...>;
        TargetFinder finder{slot};
        using boost::visit_each;
        visit_each(finder, function, 0);
        if constexpr (std::is_invocable_v<F&, A&...> && std::is_copy_constructible_v<F>)
            slot->call = function;
        else
            slot->call = [f = F(function)](A... args) mutable { callWithPrefix(f, args...); };
        return add(slot);
    }

    /// `method` of `target` takes the arguments of the signal or the first few of them. The deletion of
    /// `target` disconnects.
    template <typename T, typename V, typename... B>
    Signals::connection connect(T* target, void (V::*method)(B...)) {
        static_assert(sizeof...(B) <= sizeof...(A), "the method takes more than the signal gives");
        auto* slot = new Slot<A...>;
        V* receiver = target;
        slot->call = [receiver, method](A... args) {
            auto call = [&](auto&... taken) { (receiver->*method)(taken...); };
            prefix<sizeof...(B)>(call, args...);
        };
        trackTarget(slot, target);
        return add(slot);
    }

    /// Emits `target` whenever this is emitted.
    template <typename... B>
    Signals::connection connect(SignalOf<B...>& target) {
        auto* slot = new Slot<A...>;
        SlotList* targetList = target.ensureList();
        hold(targetList);
        struct Guard {
            SlotList* list;
            explicit Guard(SlotList* l) : list(l) {}
            Guard(const Guard& o) : list(o.list) { hold(list); }
            Guard& operator=(const Guard&) = delete;
            ~Guard() { release(list); }
        };
        slot->call = [guard = Guard(targetList), to = &target](A... args) {
            if (!guard.list->alive) return;
            auto call = [&](auto&... taken) { to->emitAll(taken...); };
            prefix<sizeof...(B)>(call, args...);
        };
        return add(slot);
    }

    void emitAll(A... args) const {
        if (!list()) return;
        Emission emission(list());
        while (SlotBase* slot = emission.next()) static_cast<Slot<A...>*>(slot)->call(args...);
    }

private:
    template <typename...>
    friend class SignalOf;

    template <std::size_t N, typename F, typename... T>
    static void prefix(F& f, T&... args) {
        [[maybe_unused]] auto all = std::forward_as_tuple(args...);
        [&]<std::size_t... I>(std::index_sequence<I...>) {
            f(std::get<I>(all)...);
        }
        (std::make_index_sequence<N>());
    }
};

} // namespace Impl

/// A signal of the application's own. Emitting reaches the slots in the order of their connection.
template <typename... A>
class Signal : public Impl::SignalOf<A...> {
public:
    explicit Signal(WObject* sender = nullptr) { static_cast<void>(sender); }

    void emit(A... args) const { this->emitAll(args...); }
    void operator()(A... args) const { this->emitAll(args...); }
};

/// A signal of an event in the browser. The browser reports the event only while somebody is connected.
class EventSignalBase {
public:
    virtual ~EventSignalBase() = default;
    EventSignalBase(const EventSignalBase&) = delete;
    EventSignalBase& operator=(const EventSignalBase&) = delete;

    void preventDefaultAction(bool prevent = true);
    void preventPropagation(bool prevent = true);

    bool defaultActionPrevented() const { return mPreventDefault; }
    bool propagationPrevented() const { return mPreventPropagation; }

protected:
    explicit EventSignalBase(WObject* sender) : mSender(sender) {}
    void senderChanged();

private:
    WObject* mSender;
    bool mPreventDefault = false, mPreventPropagation = false;
};

template <typename E = NoClass>
class EventSignal : public Impl::SignalOf<E>, public EventSignalBase {
public:
    explicit EventSignal(WObject* sender) : EventSignalBase(sender) {}

    void emit(E event = E()) const { this->emitAll(event); }
    void operator()(E event = E()) const { this->emitAll(event); }

private:
    void connectionsChanged() override { senderChanged(); }
};

template <>
class EventSignal<NoClass> : public Impl::SignalOf<>, public EventSignalBase {
public:
    explicit EventSignal(WObject* sender) : EventSignalBase(sender) {}

    void emit(NoClass = NoClass()) const { emitAll(); }
    void operator()(NoClass = NoClass()) const { emitAll(); }

private:
    void connectionsChanged() override { senderChanged(); }
};

} // namespace Wt
