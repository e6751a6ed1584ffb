#include "views/devices/tabs/SwxConflict.h"

#include "db/Db.h"

#include <algorithm>

bool noSwxInConflict(const std::vector<unsigned>& indexes) {
    return std::none_of(indexes.begin(), indexes.end(), [](unsigned index) {
        Info_SwxStatus status{};
        Info_DeviceUpgradeStatus upgrade{};
        Info_SwxUsage usage{};
        std::vector<std::string> errors;
        return Db::db.getSwxStatus(index, status, upgrade, usage, errors) != 0 ||
               status == Info_SwxStatus::ConflictIsMaster || status == Info_SwxStatus::ConflictOtherMaster;
    });
}
