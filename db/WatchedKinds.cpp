#include "db/WatchedKinds.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/ZeqExchange.h"

WatchedKinds::WatchedKinds(std::initializer_list<InfoMgr_InfoID> kinds) {
    mKinds.reserve(kinds.size());
    for (const InfoMgr_InfoID id : kinds) mKinds.push_back({id});
}

bool WatchedKinds::haveNews() {
    if (mKinds.empty()) return true;
    HeldRecords held;
    const HeldRecords::Use use(held);
    std::vector<unsigned> records;
    for (const Kind& kind : mKinds) records.push_back(static_cast<unsigned>(kind.id));
    HeldRecords::inUse()->fetch("changeStatus", records, {"lastChange"});
    bool news = false;
    for (Kind& kind : mKinds) {
        unsigned current = 0;
        std::vector<std::string> dropped;
        const auto record = static_cast<unsigned>(kind.id);
        if (Db::db.readUInt32("changeStatus", record, "lastChange", current, dropped) == 0 &&
            current < kind.lastChange)
            kind.lastChange = 0;
        if (Db::db.newDataIsAvailable(kind.id, kind.lastChange)) news = true;
    }
    return news;
}

WatchedKinds::Reading::Reading(WatchedKinds& watched)
    : mWatched(watched), mUnanswered(zeqUnansweredCount()) {}

WatchedKinds::Reading::~Reading() {
    if (zeqUnansweredCount() == mUnanswered) return;
    for (Kind& kind : mWatched.mKinds) kind.lastChange = 0;
}
