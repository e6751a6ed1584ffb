#include "db/HeldRecords.h"

#include "db/Db.h"
#include "db/InfoMgr.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <span>
#include <string_view>

namespace {

thread_local HeldRecords* tHeld = nullptr;

constexpr InfoMgr_InfoID kNotCounted{}; // changes of these are told by no counter

constexpr const char* kUserKeys[] = {"name", "mgrName", "fullName", "role"};
constexpr const char* kCounterKeys[] = {"lastChange"};

/// What is held at the first read of a value.
struct Held {
    const char* resource;
    InfoMgr_InfoID kind = kNotCounted;
    std::span<const char* const> keys = {}; // none = the whole record
};

constexpr Held kHeld[] = {
    {"swx", InfoMgr_InfoID::Switches},
    {"rx", InfoMgr_InfoID::Receivers},
    {"tx", InfoMgr_InfoID::Transmitters},
    {"userSession", InfoMgr_InfoID::UserSessions},
    {"connection", InfoMgr_InfoID::Connections},
    {"user", InfoMgr_InfoID::Users, kUserKeys},
    {"systemGlobals"},
    {"cfgDefaults"},
    {"eventLogControl"},
    {"alertLogControl"},
    {"rxUsbDiag"},
    {"txUsbDiag"},
    {"changeStatus", kNotCounted, kCounterKeys},
};

// Where a device is plugged in changes with these.
constexpr const char* kPlugged[] = {"swx", "rx", "tx"};

const Held* heldOf(std::string_view resource) {
    for (const Held& held : kHeld)
        if (resource == held.resource) return &held;
    return nullptr;
}

bool has(const Held& held, std::string_view key) {
    if (held.keys.empty()) return true;
    for (const char* each : held.keys)
        if (key == each) return true;
    return false;
}

void setIndexes(ZeqExchange& exchange, const HeldRecords::Indexes& indexes) {
    for (const unsigned index : indexes)
        if (index != 0) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", index);
}

/// A table that is empty is refused.
bool tellsNoEntries(const json_t* answer) {
    const json_t* refusal = answer ? ZeqRspUtil_getObjectParam(answer, "errors") : nullptr;
    std::vector<std::string> errors;
    if (refusal) Db::db.interpZeqErrors(refusal, errors, true);
    return refusal && errors.empty();
}

} // namespace

HeldRecords::Use::Use(HeldRecords& held) : mOutermost(!tHeld) {
    if (mOutermost) tHeld = &held;
}

HeldRecords::Use::~Use() {
    if (mOutermost) tHeld = nullptr;
}

HeldRecords* HeldRecords::inUse() {
    return tHeld;
}

HeldRecords* HeldRecords::covering(const char* resource, unsigned index, const char* key) {
    if (!tHeld) return nullptr;
    if (tHeld->fetchedRow(resource, index, key)) return tHeld;
    const Held* held = heldOf(resource);
    const bool wholeTable = held && held->kind != kNotCounted && index == 0; // far too much for one value
    return held && !wholeTable && has(*held, key) ? tHeld : nullptr;
}

bool HeldRecords::holdsWhole(const char* resource) {
    const Held* held = heldOf(resource);
    return held && held->keys.empty();
}

void HeldRecords::clear() {
    mTables.clear();
    ports = {};
}

void HeldRecords::dropChanged() {
    mSilent = false;
    mFailed = false;
    std::map<unsigned, unsigned> counters;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "changeStatus", __func__);
    ZeqReqUtil_setSelect(exchange.request(), "index");
    ZeqReqUtil_setSelect(exchange.request(), "lastChange");
    if (exchange.sendQuietly() != 0) clear();
    const int rows = ZeqRspUtil_numEntries(exchange.response());
    for (int row = 0; row < rows; ++row)
        counters[static_cast<unsigned>(
            ZeqRspUtil_getIndexedIntegerParam(exchange.response(), row, "index"))] =
            static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(exchange.response(), row, "lastChange"));

    const auto isOld = [&](std::string_view resource) {
        const Held* held = heldOf(resource);
        const auto kind = held ? static_cast<unsigned>(held->kind) : 0;
        return counters.count(kind) == 0 || counters[kind] != mCounters[kind];
    };
    std::erase_if(mTables, [&](const auto& table) { return isOld(table.first); });
    for (auto& [resource, table] : mTables) {
        table.fetched.reset();
        table.fetchedKeys.clear();
        table.fetchedRows.clear();
        table.fetchedAll = false;
        table.sorted.clear();
        std::erase_if(table.records, [](const auto& record) { return !record.second; });
    }
    for (const char* resource : kPlugged)
        if (isOld(resource)) ports = {};
    mCounters = std::move(counters);
}

const json_t* HeldRecords::fetch(const char* resource, const Indexes& indexes, const Keys& keys) {
    Table& table = mTables[resource];
    table.fetched.reset();
    table.fetchedKeys = {keys.begin(), keys.end()};
    table.fetchedRows.clear();
    table.fetchedAll = indexes.empty();
    table.sorted.clear();
    if (table.fetchedAll) table.found.clear();
    if (mSilent) return nullptr;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    setIndexes(exchange, indexes);
    const bool numbered = indexes != Indexes{0};
    if (numbered) ZeqReqUtil_setSelect(exchange.request(), "index");
    for (const std::string& key : table.fetchedKeys) ZeqReqUtil_setSelect(exchange.request(), key.c_str());
    const bool refused =
        exchange.sendQuietly() != 0 && !(table.fetchedAll && tellsNoEntries(exchange.response()));
    mSilent = !exchange.response();
    const int rows = ZeqRspUtil_numEntries(exchange.response());
    if (refused || rows < static_cast<int>(indexes.size())) {
        mFailed = true;
        return nullptr;
    }
    table.fetched = exchange.takeResponse();
    for (int row = 0; row < rows; ++row) {
        const json_t* held = ZeqObj_getRow(table.fetched.get(), row);
        const auto index = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(held, "index"));
        table.fetchedRows[numbered ? index : 0] = held;
    }
    return table.fetched.get();
}

const json_t* HeldRecords::fetchedRow(const char* resource, unsigned index, const char* key) const {
    const auto table = mTables.find(resource);
    if (table == mTables.end() || !table->second.fetchedKeys.contains(std::string_view(key))) return nullptr;
    const auto row = table->second.fetchedRows.find(index);
    return row == table->second.fetchedRows.end() ? nullptr : row->second;
}

const json_t* HeldRecords::row(const char* resource, unsigned index, const char* key, Errors& errors) {
    if (const json_t* fetched = fetchedRow(resource, index, key)) return fetched;
    auto& records = mTables[resource].records;
    const auto known = records.find(index);
    if (known != records.end()) return known->second.get();
    const Row asked = ask(resource, index, errors);
    if (!asked) mFailed = true;
    return (records[index] = asked).get();
}

HeldRecords::Row HeldRecords::ask(const char* resource, unsigned index, Errors& errors) {
    if (mSilent) return nullptr;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    setIndexes(exchange, {index});
    for (const char* key : heldOf(resource)->keys) ZeqReqUtil_setSelect(exchange.request(), key);
    const bool refused = exchange.send(errors) != 0;
    mSilent = !exchange.response();
    return refused ? nullptr : exchange.takeResponse();
}

void HeldRecords::sortBy(Table& table, const char* key) {
    const bool known = table.fetchedAll && table.fetched && table.fetchedKeys.contains(std::string_view(key));
    if (!known || !table.sorted.insert(key).second) return;
    for (const auto& [index, row] : table.fetchedRows) // the first of several is found
        table.found.try_emplace({key, static_cast<unsigned>(ZeqRspUtil_getIntegerParam(row, key))}, index);
}

unsigned HeldRecords::find(const char* resource, const char* key, unsigned value, unsigned& index) {
    Table& table = mTables[resource];
    sortBy(table, key);
    const auto place = std::pair(std::string(key), value);
    const auto known = table.found.find(place);
    if (known != table.found.end()) {
        if (known->second != 0) index = known->second;
        return known->second != 0 ? 0 : 1;
    }
    if (mSilent || table.sorted.contains(std::string_view(key))) return 1;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, resource, __func__);
    ZeqReqUtil_setIntegerQuery(exchange.request(), key, value);
    exchange.sendQuietly(); // a table without such an entry is refused; here that is just "not found"
    mSilent = !exchange.response();
    if (mSilent) {
        mFailed = true;
        return 1;
    }
    const std::shared_ptr<json_t> answer = exchange.takeResponse();
    unsigned& found = table.found[place];
    for (int i = 0; const json_t* each = ZeqObj_getRow(answer.get(), i); ++i) {
        if (static_cast<unsigned>(ZeqRspUtil_getIntegerParam(each, key)) != value) continue;
        found = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(each, "index"));
        table.records[found] = Row(answer, each);
        index = found;
        return 0;
    }
    return 1;
}
