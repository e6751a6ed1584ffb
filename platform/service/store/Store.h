// All records in memory, as they are on disk. Changed only by taking over a transaction that has been kept.
#pragma once

#include "platform/service/store/Disk.h"
#include "platform/service/store/View.h"

#include <array>
#include <map>
#include <optional>

namespace zeqd {

class Transaction;

class Store : public View {
public:
    /// Singletons and the changeStatus records are there from the start.
    Store();

    /// Takes over a record that was read from the disk.
    void load(RecordPtr record);
    /// A record of that index has been there; no other is to have it.
    void retire(Res id, std::uint32_t index);
    void apply(const Transaction& transaction);
    /// What is to be on disk.
    DiskContent content() const;

    RecordPtr find(Res id, std::uint32_t index) const override;
    void eachFrom(Res id, std::uint32_t from,
                  const std::function<bool(const RecordPtr&)>& visit) const override;
    std::uint32_t nextIndex(Res id) const override;
    std::size_t count(Res id) const override;

private:
    struct Table {
        std::map<std::uint32_t, RecordPtr> records;
        std::uint32_t next = 1;
    };
    const Table& table(Res id) const { return mTables[static_cast<std::size_t>(id)]; }
    void put(RecordPtr record);

    std::array<Table, kResourceCount> mTables;
};

} // namespace zeqd
