// Role of this Switch, and of a set of Switches.

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "platform/client/EventLog.h"

namespace {

bool thisSwxHas(const char* key, const char* value) {
    std::string text;
    Db::Errors dropped;
    return Db::db.readString("swx", kThisSwxIndex, key, text, dropped) == 0 && text == value;
}

} // namespace

bool Db::thisSwxIsMaster() {
    return thisSwxHas("mode", "master");
}

bool Db::thisSwxIsCascadeController() {
    return thisSwxHas("cascadeRole", "controller");
}

bool Db::thisSwxIsBackupCascadeController() {
    return thisSwxHas("cascadeRole", "backup");
}

bool Db::thisSwxIsManaged() {
    std::string setting;
    Errors dropped;
    if (readString("systemGlobals", 0, "managedSetting", setting, dropped) != 0) {
        EventLog_write(1, 7, __func__, "Unable to read Managed setting.");
        return false;
    }
    return setting != "non_managed";
}

bool Db::slaveSwxIsInSet(const Indexes& indexes, Errors& errors) {
    std::string mode;
    return readStringMerge("swx", indexes, "mode", mode, errors) == 0 && mode != "master";
}
