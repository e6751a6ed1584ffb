#pragma once

#include <Wt/WEvent.h>
#include <Wt/WSignal.h>

#include <memory>
#include <string_view>
#include <variant>
#include <vector>

namespace Wt::Impl {

/// The event signals that somebody asked a widget for.
class EventSignals {
public:
    template <typename E>
    EventSignal<E>& get(const char* kind, WObject* sender) {
        for (const Entry& entry : mEntries)
            if (std::string_view(entry.kind) == kind)
                return *std::get<std::unique_ptr<EventSignal<E>>>(entry.signal);
        mEntries.push_back({kind, std::make_unique<EventSignal<E>>(sender)});
        return *std::get<std::unique_ptr<EventSignal<E>>>(mEntries.back().signal);
    }

    using AnySignal = std::variant<std::unique_ptr<EventSignal<>>, std::unique_ptr<EventSignal<WMouseEvent>>,
                                   std::unique_ptr<EventSignal<WKeyEvent>>>;
    struct Entry {
        const char* kind; // a literal, the name in the page protocol
        AnySignal signal;
    };
    const std::vector<Entry>& entries() const { return mEntries; }
    const Entry* find(std::string_view kind) const {
        for (const Entry& entry : mEntries)
            if (entry.kind == kind) return &entry;
        return nullptr;
    }

private:
    std::vector<Entry> mEntries;
};

} // namespace Wt::Impl
