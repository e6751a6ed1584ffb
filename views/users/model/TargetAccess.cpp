#include "views/users/model/TargetAccess.h"

#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace {

using Indexes = TargetAccess::Indexes;

constexpr const char* kReader = "populate"; // as the log names it

Indexes listOf(const ZeqRow& user, const char* key) {
    Indexes list;
    for (const ZeqRow entry : ZeqRows(json_object_get(user.json(), key)))
        list.push_back(entry.number("txIndex"));
    return list;
}

} // namespace

Indexes unionOf(const Indexes& a, const Indexes& b) {
    Indexes result;
    result.reserve(a.size() + b.size());
    std::ranges::set_union(a, b, std::back_inserter(result));
    return result;
}

Indexes without(const Indexes& a, const Indexes& b) {
    Indexes result;
    result.reserve(a.size());
    std::ranges::set_difference(a, b, std::back_inserter(result));
    return result;
}

Indexes commonOf(const Indexes& a, const Indexes& b) {
    Indexes result;
    std::ranges::set_intersection(a, b, std::back_inserter(result));
    return result;
}

Indexes asSet(Indexes values) {
    std::ranges::sort(values);
    values.erase(std::ranges::unique(values).begin(), values.end());
    return values;
}

Indexes indexesOf(const std::vector<TargetItem>& items) {
    Indexes indexes;
    indexes.reserve(items.size());
    for (const TargetItem& item : items) indexes.push_back(item.index);
    return indexes;
}

unsigned sendTargetList(json_t* request, const char* key, const Indexes& indexes,
                        std::vector<std::string>& errors) {
    ZeqExchange exchange(ZeqPtr(request), "writeToDatabase");
    if (!exchange.ready()) return 1;
    ZeqPtr list(ZeqObj_newArray());
    for (const unsigned index : indexes) {
        json_t* entry = ZeqObj_new();
        if (!list || !entry || ZeqObj_setInteger(entry, "txIndex", index) != 0 ||
            ZeqObj_arrayAppendObject(list.get(), entry) != 0)
            return 1;
    }
    if (!list || ZeqReqUtil_setObjectParam(exchange.request(), key, list.release()) != 0) return 1;
    return exchange.send(errors);
}

const TargetAccess::Targets* TargetAccess::getTargetsForUser(unsigned userIndex) const {
    const auto found = std::ranges::find(targetsByUser, userIndex, &Targets::userIndex);
    return found == targetsByUser.end() ? nullptr : &*found;
}

void TargetAccess::clearTargets() {
    targetsByUser.clear();
    targetNoAccessSubset.clear();
    targetConflictSet.clear();
    targetAllAccessSubset.clear();
}

unsigned TargetAccess::read(const Indexes& selection, bool favorites) {
    clearTargets();
    if (readUsers(selection, favorites) != 0 || readTransmitters() != 0) {
        targetsByUser.clear();
        return 1;
    }
    merge();
    return 0;
}

unsigned TargetAccess::readUsers(const Indexes& selection, bool favorites) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "user", kReader);
    if (!exchange.ready()) return 1;
    for (const char* key : {"index", "allTargetAccess", "target"})
        ZeqReqUtil_setSelect(exchange.request(), key);
    if (favorites) ZeqReqUtil_setSelect(exchange.request(), "favorite");
    for (const unsigned user : selection) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", user);
    if (exchange.sendQuietly() != 0) {
        EventLog_write(2, 7, kReader, "Unable to retrieve user target list.");
        return 1;
    }
    std::map<unsigned, Targets> read;
    for (const ZeqRow row : ZeqRows(exchange.response())) {
        const unsigned user = row.number("index");
        read[user] = {user, row.text("allTargetAccess") == "enabled", asSet(listOf(row, "target")),
                      listOf(row, "favorite")};
    }
    for (const unsigned user : selection) {
        const auto found = read.find(user);
        if (found == read.end()) return 1;
        targetsByUser.push_back(found->second);
        const EnableAll own = found->second.enableAll ? ENABLE_ALL_YES : ENABLE_ALL_NO;
        if (targetsByUser.size() == 1)
            enableAll = own;
        else if (enableAll != own)
            enableAll = ENABLE_ALL_MIXED;
    }
    return 0;
}

unsigned TargetAccess::readTransmitters() {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "tx", kReader);
    if (!exchange.ready()) return 1;
    for (const char* key : {"index", "eid", "name"}) ZeqReqUtil_setSelect(exchange.request(), key);
    exchange.sendQuietly(); // no Transmitter at all is told as a refusal
    if (!exchange.response()) {
        EventLog_write(2, 7, kReader, "Unable to retrieve transmitter list.");
        return 1;
    }
    targetAllSet.clear();
    for (const ZeqRow row : ZeqRows(exchange.response()))
        targetAllSet.push_back({row.number("index"), false, row.text("eid"), row.text("name")});
    std::ranges::sort(targetAllSet, {}, &TargetItem::index);
    return 0;
}

void TargetAccess::merge() {
    const Indexes all = indexesOf(targetAllSet);
    targetNoAccessSubset = all;
    targetAllAccessSubset = all;
    for (Targets& user : targetsByUser) {
        user.targets = commonOf(user.targets, all); // what names no Transmitter is no target
        // On purpose: all-target access widens what all may reach, but not what is on somebody's list. The lists
        // describe target lists, the check box describes the access.
        targetNoAccessSubset = without(targetNoAccessSubset, user.targets);
        if (!user.enableAll) targetAllAccessSubset = commonOf(targetAllAccessSubset, user.targets);
    }
    targetConflictSet = without(without(all, targetAllAccessSubset), targetNoAccessSubset);
}

void TargetAccess::append(Items& items, const Indexes& indexes, bool conflict) const {
    for (const unsigned index : indexes) {
        const auto found = std::ranges::lower_bound(targetAllSet, index, {}, &TargetItem::index);
        if (found == targetAllSet.end() || found->index != index) continue;
        items.push_back(*found);
        items.back().conflict = conflict;
    }
}
