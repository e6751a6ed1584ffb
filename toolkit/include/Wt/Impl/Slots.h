#pragma once

#include <boost/visit_each.hpp>

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>
#include <vector>

namespace Wt {

class WObject;
class SignalBase;

/// The part of signals that knows no argument types. Single-threaded, like everything of a session.
///
/// A slot is shared by its signal and by every Signals::connection that names it; a target object that dies
/// cuts its slots, so an emission never reaches a deleted object. Emission walks the slots that were there
/// when it began, skipping those cut meanwhile; it survives the death of the signal itself.
namespace Impl {

struct SlotList;

struct SlotBase {
    virtual ~SlotBase() = default;

    unsigned references = 0;
    bool blocked = false;
    SlotList* list = nullptr; // null: cut
    std::vector<WObject*> targets;
};

struct SlotList {
    unsigned references = 0;
    unsigned emitting = 0; // depth of nested emissions
    bool alive = true;     // the signal still exists
    bool gaps = false;     // cut slots wait for the end of the emission
    std::vector<SlotBase*> slots;
};

void hold(SlotBase* slot);
void release(SlotBase* slot);
void hold(SlotList* list);
void release(SlotList* list);
void addSlot(SlotList*& list, SlotBase* slot);
void cutSlot(SlotBase* slot);
void closeList(SlotList* list);
void trackTarget(SlotBase* slot, WObject* target);

/// Holds list and place during one emission.
class Emission {
public:
    explicit Emission(SlotList* list);
    ~Emission();
    Emission(const Emission&) = delete;
    Emission& operator=(const Emission&) = delete;

    /// The next live slot, or null. The slot stays valid until the next call.
    SlotBase* next();

private:
    SlotList* mList;
    SlotBase* mCurrent = nullptr;
    std::size_t mIndex = 0, mEnd = 0;
};

/// Calls with as many of the leading arguments as the function takes.
template <typename F, typename... A>
void callWithPrefix(F& f, A&... args) {
    if constexpr (std::is_invocable_v<F&, A&...>) {
        f(args...);
    } else {
        static_assert(sizeof...(A) > 0, "the slot cannot be called with the arguments of the signal");
        auto dropLast = [&]<std::size_t... I>(std::index_sequence<I...>) {
            [[maybe_unused]] auto all = std::forward_as_tuple(args...);
            callWithPrefix(f, std::get<I>(all)...);
        };
        dropLast(std::make_index_sequence<sizeof...(A) - 1>());
    }
}

template <typename... A>
struct Slot : SlotBase {
    std::function<void(A...)> call;
};

/// Finds the objects that boost::bind holds, so that their death cuts the slot.
struct TargetFinder {
    SlotBase* slot;
    template <typename T>
    void operator()(const T& value) const {
        if constexpr (std::is_pointer_v<T>) {
            using Pointee = std::remove_cv_t<std::remove_pointer_t<T>>;
            if constexpr (std::is_class_v<Pointee>)
                if constexpr (std::is_base_of_v<WObject, Pointee>)
                    if (value) trackTarget(slot, const_cast<Pointee*>(value));
        }
    }
};

} // namespace Impl
} // namespace Wt
