#include "views/devices/firmware/FwUpdateReset.h"

#include "db/Db.h"

bool devicesResetAfterUpgrade() {
    std::vector<std::string> errors;
    bool reset = true;
    const unsigned failed = Db::db.readEnableDisable("systemGlobals", 0, "resetAfterUpgrade", reset, errors);
    return failed != 0 || reset;
}
