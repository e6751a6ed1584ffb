// Users: their rights and where they are logged in.

#include "db/Convert.h"
#include "db/Db.h"
#include "db/OfRecord.h"
#include "db/UserTargets.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

namespace {

constexpr int kAllTargetAccessEnabled = 2; // as ZeqRsp_userGetAllTargetAccess numbers it

// Sends for one key of a user's record; what came is then in exchange.response().
unsigned getOfUser(ZeqExchange& exchange, unsigned index, const char* key, Db::Errors& errors) {
    if (!exchange.ready()) return 1;
    ZeqObj_setUInt32Object(exchange.request(), "query", "index", index);
    ZeqObj_setSelect(exchange.request(), key);
    return exchange.send(errors);
}

} // namespace

unsigned Db::getUserRoleFromUserIndex(unsigned index, std::string& role, Errors& errors) {
    std::string stored;
    if (readTextOf("user", index, "role", stored, errors) != 0) return 1;
    role = Convert_userRoleDbStringToUiString(stored);
    return 0;
}

unsigned Db::getAllowedAccessModeFromUserIndex(unsigned index, std::string& mode, Errors& errors) {
    return readTextOf("user", index, "modeAllowed", mode, errors);
}

unsigned Db::getEnableAllTargetAccessFromUserIndex(unsigned index, bool& enabled, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "user", __func__);
    if (getOfUser(exchange, index, "allTargetAccess", errors) != 0) return 1;
    enabled = ZeqRsp_userGetAllTargetAccess(exchange.response()) == kAllTargetAccessEnabled;
    return 0;
}

unsigned Db::getUserTargets(unsigned userIndex, UserTargets& targets, Errors& errors) {
    targets = {};
    if (const unsigned result = getEnableAllTargetAccessFromUserIndex(userIndex, targets.all, errors))
        return result;
    if (targets.all) return 0;
    ZeqClient_s* client = nullptr;
    if (getZeqClient(client) != 0) return 1;
    const ZeqPtr rsp = zeqRetrieve(ZeqReq_userTargetListRetrieveByIndex, client, userIndex);
    if (!rsp) {
        EventLog_write(2, 7, __func__, "Unable to retrieve user target list.");
        return 1;
    }
    const ZeqPtr list(ZeqObj_collapse(rsp.get(), "index", "target"));
    if (!list) {
        EventLog_write(2, 7, __func__, "Unable to retrieve target list.");
        return 1;
    }
    for (const ZeqRow target : ZeqRows(list.get())) targets.transmitters.insert(target.number("txIndex"));
    return 0;
}

unsigned Db::getUserTxAccessRight(unsigned userIndex, unsigned txIndex, bool& allowed, Errors& errors) {
    UserTargets targets;
    const unsigned result = getUserTargets(userIndex, targets, errors);
    allowed = targets.allows(txIndex);
    return result;
}

bool Db::userIsLoggedInToRx(unsigned userIndex, Errors& errors) {
    unsigned session = 0;
    return findReferrer("userSession", "userIndex", userIndex, session, errors) == 0;
}

bool Db::userIsLoggedInToMirl(unsigned userIndex, Errors& errors) {
    unsigned session = 0;
    return findReferrer("adminSession", "userIndex", userIndex, session, errors) == 0;
}

unsigned Db::getLoggedInUserIndexFromRxIndex(unsigned rxIndex, unsigned& userIndex, Errors& errors) {
    unsigned session = 0;
    if (findReferrer("userSession", "rxIndex", rxIndex, session, errors) != 0) return 1;
    return readNumberOf("userSession", session, "userIndex", userIndex, errors);
}

unsigned Db::getLoggedInUsernameFromRxIndex(unsigned rxIndex, std::string& value, Errors& errors) {
    unsigned userIndex = 0;
    if (getLoggedInUserIndexFromRxIndex(rxIndex, userIndex, errors) != 0) return 1;
    std::string name;
    if (readTextOf("user", userIndex, "name", name, errors) != 0) return 1;
    if (name.empty() && readTextOf("user", userIndex, "mgrName", name, errors) != 0) return 1;
    value = name;
    return 0;
}

unsigned Db::getConnectedUsernameFromTxIndex(unsigned txIndex, std::string& value, Errors& errors) {
    unsigned connection = 0;
    if (findReferrer("connection", "txIndex", txIndex, connection, errors) != 0) return 1;
    unsigned rxIndex = 0;
    if (readNumberOf("connection", connection, "rxIndex", rxIndex, errors) != 0) return 1;
    return getLoggedInUsernameFromRxIndex(rxIndex, value, errors);
}
