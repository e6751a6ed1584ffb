#include "platform/service/store/Transaction.h"

#include <algorithm>
#include <iterator>

namespace zeqd {

const Transaction::Table* Transaction::table(Res id) const {
    const auto found = mTables.find(id);
    return found == mTables.end() ? nullptr : &found->second;
}

void Transaction::put(Record record) {
    const Key key{record.id(), record.index()};
    Table& table = mTables[key.first];
    if (!find(key.first, key.second)) ++table.count;
    table.next = std::max(table.next, key.second + 1);
    table.lowest = std::min(table.lowest, key.second);
    mChanges[key] = std::make_shared<const Record>(std::move(record));
}

void Transaction::erase(Res id, std::uint32_t index) {
    if (!find(id, index)) return;
    Table& table = mTables[id];
    --table.count;
    // What came and went here leaves no trace; but the highest number does, which nobody is to have again.
    if (index + 1 < table.next && !mBase.find(id, index))
        mChanges.erase({id, index});
    else
        mChanges[{id, index}] = nullptr;
}

void Transaction::clear() {
    mChanges.clear();
    mTables.clear();
    mTasks.clear();
    mLog.clear();
}

void Transaction::merge(Transaction&& inner) {
    for (auto& [key, record] : inner.mChanges) mChanges[key] = std::move(record);
    for (const auto& [id, more] : inner.mTables) {
        Table& table = mTables[id];
        table.count += more.count;
        table.next = std::max(table.next, more.next);
        table.lowest = 0;
    }
    mTasks.insert(mTasks.end(), inner.mTasks.begin(), inner.mTasks.end());
    std::move(inner.mLog.begin(), inner.mLog.end(), std::back_inserter(mLog));
}

RecordPtr Transaction::oldest(Res id) {
    RecordPtr found;
    Table& table = mTables[id];
    eachFrom(id, table.lowest, [&](const RecordPtr& record) {
        found = record;
        return false;
    });
    if (found) table.lowest = found->index();
    return found;
}

RecordPtr Transaction::find(Res id, std::uint32_t index) const {
    const auto found = mChanges.find({id, index});
    return found == mChanges.end() ? mBase.find(id, index) : found->second;
}

void Transaction::eachFrom(Res id, std::uint32_t from,
                           const std::function<bool(const RecordPtr&)>& visit) const {
    auto next = mChanges.lower_bound({id, from});
    const auto end = mChanges.upper_bound({id, kAnyNumber});
    bool on = true;
    // The changed records with a lower index than the base's next one go first;
    // a changed one replaces its base.
    const auto changedBelow = [&](std::uint64_t index) {
        for (; on && next != end && next->first.second < index; ++next)
            if (next->second) on = visit(next->second);
    };
    mBase.eachFrom(id, from, [&](const RecordPtr& record) {
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
    const Table* changed = table(id);
    return std::max(mBase.nextIndex(id), changed ? changed->next : 0);
}

std::size_t Transaction::count(Res id) const {
    const Table* changed = table(id);
    return mBase.count(id) + static_cast<std::size_t>(changed ? changed->count : 0);
}

} // namespace zeqd
