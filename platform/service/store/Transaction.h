// Changes over a view, not kept yet. A request works in a transaction of its own over that of its batch: it
// is merged when all went well and dropped otherwise, so that a refused request changes nothing.
#pragma once

#include "platform/service/store/EventLine.h"
#include "platform/service/store/View.h"

#include <map>
#include <vector>

namespace zeqd {

/// A step of the simulation, to be run when its time has come. What it means is the simulation's affair.
struct Task {
    std::uint16_t kind = 0;
    Res resource = Res::Swx;
    std::uint32_t index = 0;
    std::uint32_t argument = 0;
};
struct TimedTask {
    Task task;
    std::int64_t delayMs; ///< simulated milliseconds from when the transaction is kept
};

class Transaction : public View {
public:
    using Key = std::pair<Res, std::uint32_t>;
    /// Null marks a record that is no more.
    using Changes = std::map<Key, RecordPtr>;

    /// Over a store or another transaction, which must outlive it. A pointer, since a reference to a
    /// transaction would ask for a copy.
    explicit Transaction(const View* base) : mBase(*base) {}
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void put(Record record);
    void erase(Res id, std::uint32_t index);
    /// Runs the task after the delay, if this transaction is kept.
    void later(std::int64_t delayMs, Task task) { mTasks.push_back({task, delayMs}); }
    /// A line for the event log and the syslog server, written when this transaction is kept.
    void log(EventLine line) { mLog.push_back(std::move(line)); }
    /// Forgets everything.
    void clear();
    /// Takes over what the other transaction, made over this one, has changed.
    void merge(Transaction&& inner);

    const View& base() const { return mBase; }
    const Changes& changes() const { return mChanges; }
    const std::vector<TimedTask>& tasks() const { return mTasks; }
    const std::vector<EventLine>& logLines() const { return mLog; }
    bool empty() const { return mChanges.empty() && mTasks.empty() && mLog.empty(); }

    RecordPtr find(Res id, std::uint32_t index) const override;
    void eachFrom(Res id, std::uint32_t from,
                  const std::function<bool(const RecordPtr&)>& visit) const override;
    /// The record with the lowest index, or null.
    RecordPtr oldest(Res id);
    std::uint32_t nextIndex(Res id) const override;
    std::size_t count(Res id) const override;

private:
    /// What the changes do to a table, so that it need not be counted.
    struct Table {
        std::int64_t count = 0;   ///< more records than below
        std::uint32_t next = 0;   ///< index behind the highest one that was put
        std::uint32_t lowest = 0; ///< no record has a lower index
    };
    const Table* table(Res id) const;

    const View& mBase;
    Changes mChanges;
    std::map<Res, Table> mTables;
    std::vector<TimedTask> mTasks;
    std::vector<EventLine> mLog;
};

} // namespace zeqd
