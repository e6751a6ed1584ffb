#include "shell/Security.h"

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <Wt/WApplication>
#include <Wt/WEnvironment>

namespace {

using Errors = std::vector<std::string>;

} // namespace

int Security_loginMirlUser(const char* username, const char* password, unsigned int& usrIndex,
                           bool& passwordIsInitialized) {
    ZeqExchange exchange(ZeqPtr(ZeqReq_adminSessionNewCreateReq()), __func__);
    if (!exchange.ready()) return 1;
    json_t* request = exchange.request();
    ZeqReq_adminSessionSetIpAddress(request,
                                    Wt::WApplication::instance()->environment().clientAddress().c_str());
    ZeqReqUtil_setStringParam(request, "username", username);
    ZeqReqUtil_setStringParam(request, "password", password);
    ZeqReqUtil_setStringParam(request, "sessionType", "mirl");
    if (exchange.sendQuietly() != 0) return 1;
    usrIndex = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(exchange.response(), "userIndex"));

    std::string initialized;
    Errors errors;
    if (Db::db.readString("user", usrIndex, "passwordIsInitialized", initialized, errors) != 0) return 1;
    passwordIsInitialized = initialized == "is_true";
    return 0;
}

int Security_logoutMirlUser(unsigned int usrIndex, Errors& errors) {
    std::string name;
    Errors nameErrors; // only the log line wants the name
    Db::db.readString("user", usrIndex, "name", name, nameErrors);

    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return 1;
    unsigned sessionIndex = 0;
    if (Db::db.findIndexOfUInt32Key("adminSession", "userIndex", usrIndex, sessionIndex, errors) != 0)
        return 0;

    ZeqExchange exchange(ZeqPtr(ZeqReq_adminSessionNewDeleteReq(sessionIndex)), __func__);
    if (exchange.send(errors) != 0) return 1;
    EventLog_write(3, 7, __func__, "%s logged out of MIRL.", name);
    return 0;
}

int Security_setPassword(const char* username, const char* password) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "user", __func__);
    if (!exchange.ready()) return 1;
    json_t* request = exchange.request();
    ZeqReqUtil_setStringParam(request, "name", username);
    ZeqReqUtil_setStringParam(request, "role", "admin");
    ZeqReqUtil_setStringParam(request, "password", password);
    ZeqReqUtil_setStringParam(request, "passwordIsInitialized", "is_true");
    const unsigned result = exchange.sendQuietly();
    if (!exchange.response()) EventLog_write(1, 7, __func__, "Cannot change password.");
    return result != 0;
}

int Security_loginRxUser(unsigned int usrIndex, unsigned int rxIndex, Errors& errors) {
    ZeqExchange exchange(ZeqPtr(ZeqReq_userSessionNewCreateReq()), __func__);
    if (!exchange.ready()) return 1;
    ZeqReq_userSessionSetUserIndex(exchange.request(), usrIndex);
    ZeqReq_userSessionSetRxIndex(exchange.request(), rxIndex);
    return exchange.send(errors) != 0;
}

int Security_logoutUserByRxIndex(unsigned int rxIndex, Errors& errors) {
    unsigned index = 0;
    if (Db::db.findIndexOfUInt32Key("userSession", "rxIndex", rxIndex, index, errors) != 0) return 1;
    return Db::db.deleteRecordByIndex("userSession", index, errors) != 0;
}

int Security_logoutUserByUserIndex(unsigned int usrIndex, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "userSession", __func__);
    if (!exchange.ready()) return 1;
    ZeqObj_setSelect(exchange.request(), "index");
    ZeqObj_setSelect(exchange.request(), "userIndex");
    if (exchange.send(errors) != 0) return 1;

    int result = 0;
    for (const ZeqRow login : ZeqRows(exchange.response())) {
        if (login.number("userIndex") != usrIndex) continue;
        if (Db::db.deleteRecordByIndex("userSession", login.number("index"), errors) != 0) result = 1;
    }
    return result;
}
