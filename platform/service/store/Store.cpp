#include "platform/service/store/Store.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/record/RecordJson.h"
#include "platform/service/store/Transaction.h"

#include <algorithm>

namespace zeqd {

Store::Store() {
    for (const ResourceRow& row : catalogue())
        if (row.shape == Shape::Singleton) put(std::make_shared<Record>(row.id, 0U));
    for (std::uint32_t id = 1; id <= kLastInfoId; ++id) put(std::make_shared<Record>(Res::ChangeStatus, id));
}

void Store::put(RecordPtr record) {
    Table& table = mTables[static_cast<std::size_t>(record->id())];
    table.next = std::max(table.next, record->index() + 1);
    table.records[record->index()] = std::move(record);
}

void Store::load(RecordPtr record) {
    put(std::move(record));
}

void Store::retire(Res id, std::uint32_t index) {
    Table& table = mTables[static_cast<std::size_t>(id)];
    table.next = std::max(table.next, index + 1);
}

void Store::apply(const Transaction& transaction) {
    for (const auto& [key, record] : transaction.changes()) {
        if (record) {
            put(record);
            continue;
        }
        retire(key.first, key.second); // it may have come and gone within this transaction
        mTables[static_cast<std::size_t>(key.first)].records.erase(key.second);
    }
}

DiskContent Store::content() const {
    DiskContent all;
    for (const ResourceRow& row : catalogue()) {
        if (!row.durable) continue;
        for (const auto& [index, record] : table(row.id).records)
            all.records.push_back({row.id, index, diskText(*record)});
        if (table(row.id).next > 1) all.retired.emplace_back(row.id, table(row.id).next - 1);
    }
    return all;
}

RecordPtr Store::find(Res id, std::uint32_t index) const {
    const auto found = table(id).records.find(index);
    return found == table(id).records.end() ? nullptr : found->second;
}

void Store::eachFrom(Res id, std::uint32_t from, const std::function<bool(const RecordPtr&)>& visit) const {
    const auto& records = table(id).records;
    for (auto record = records.lower_bound(from); record != records.end(); ++record)
        if (!visit(record->second)) return;
}

std::uint32_t Store::nextIndex(Res id) const {
    return table(id).next;
}

std::size_t Store::count(Res id) const {
    return table(id).records.size();
}

} // namespace zeqd
