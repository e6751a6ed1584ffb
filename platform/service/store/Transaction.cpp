#include "platform/service/store/Transaction.h"

#include <algorithm>
#include <iterator>

namespace zeqd {

void Transaction::put(Record record) {
    const Key key{record.id(), record.index()};
    mChanges[key] = std::make_shared<const Record>(std::move(record));
}

void Transaction::erase(Res id, std::uint32_t index) {
    if (find(id, index)) mChanges[{id, index}] = nullptr;
}

void Transaction::clear() {
    mChanges.clear();
    mTasks.clear();
    mLog.clear();
}

void Transaction::merge(Transaction&& inner) {
    for (auto& [key, record] : inner.mChanges) mChanges[key] = std::move(record);
    mTasks.insert(mTasks.end(), inner.mTasks.begin(), inner.mTasks.end());
    std::move(inner.mLog.begin(), inner.mLog.end(), std::back_inserter(mLog));
}

RecordPtr Transaction::find(Res id, std::uint32_t index) const {
    const auto found = mChanges.find({id, index});
    return found == mChanges.end() ? mBase.find(id, index) : found->second;
}

void Transaction::each(Res id, const std::function<bool(const RecordPtr&)>& visit) const {
    auto next = mChanges.lower_bound({id, 0});
    const auto end =
        std::find_if(next, mChanges.end(), [&](const auto& change) { return change.first.first != id; });
    bool on = true;
    // The changed records with a lower index than the base's next one go first;
    // a changed one replaces its base.
    const auto changedBelow = [&](std::uint64_t index) {
        for (; on && next != end && next->first.second < index; ++next)
            if (next->second) on = visit(next->second);
    };
    mBase.each(id, [&](const RecordPtr& record) {
        changedBelow(record->index());
        if (!on) return false;
        if (next != end && next->first.second == record->index()) {
            const RecordPtr& changed = next->second;
            ++next;
            on = !changed || visit(changed);
        } else {
            on = visit(record);
        }
        return on;
    });
    changedBelow(1ULL << 32);
}

std::uint32_t Transaction::nextIndex(Res id) const {
    std::uint32_t next = mBase.nextIndex(id);
    for (auto change = mChanges.lower_bound({id, 0}); change != mChanges.end() && change->first.first == id;
         ++change)
        next = std::max(next, change->first.second + 1);
    return next;
}

std::size_t Transaction::count(Res id) const {
    std::size_t count = mBase.count(id);
    for (auto change = mChanges.lower_bound({id, 0}); change != mChanges.end() && change->first.first == id;
         ++change) {
        const bool before = mBase.find(id, change->first.second) != nullptr;
        if (before && !change->second) --count;
        if (!before && change->second) ++count;
    }
    return count;
}

} // namespace zeqd
