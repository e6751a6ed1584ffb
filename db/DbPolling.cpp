#include "db/Db.h"

bool Db::newDataIsAvailable(InfoMgr_InfoID id, unsigned& lastChange) {
    unsigned current = 0;
    Errors dropped;
    if (readUInt32("changeStatus", static_cast<unsigned>(id), "lastChange", current, dropped) != 0)
        return true;
    if (lastChange >= current) return false;
    lastChange = current;
    return true;
}
