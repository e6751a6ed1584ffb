#include "db/WatchedKinds.h"

#include "db/Db.h"

#include <algorithm>

WatchedKinds::WatchedKinds(std::initializer_list<InfoMgr_InfoID> kinds) {
    mKinds.reserve(kinds.size());
    for (const InfoMgr_InfoID id : kinds) mKinds.push_back({id});
}

bool WatchedKinds::haveNews() {
    bool news = mKinds.empty();
    for (Kind& kind : mKinds) {
        if (Db::db.newDataIsAvailable(kind.id, kind.lastChange)) news = true;
    }
    return news;
}

bool WatchedKinds::anyHasNews() {
    return mKinds.empty() || std::any_of(mKinds.begin(), mKinds.end(), [](Kind& kind) {
               return Db::db.newDataIsAvailable(kind.id, kind.lastChange);
           });
}
