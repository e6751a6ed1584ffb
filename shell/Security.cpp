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

constexpr json_int_t kNotFound = 7;
constexpr json_int_t kNoEntries = 1009;

ZeqPtr newLogin(const MirlSession& session, const char* secretKey, const char* secret) {
    ZeqPtr request(ZeqReq_adminSessionNewCreateReq());
    ZeqReq_adminSessionSetIpAddress(request.get(),
                                    Wt::WApplication::instance()->environment().clientAddress().c_str());
    ZeqReqUtil_setStringParam(request.get(), "username", session.username.c_str());
    ZeqReqUtil_setStringParam(request.get(), secretKey, secret);
    ZeqReqUtil_setStringParam(request.get(), "sessionType", "mirl");
    return request;
}

void take(MirlSession& session, const json_t* answer) {
    session.index = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(answer, "index"));
    const char* key = ZeqRspUtil_getStringParam(answer, "resumeKey");
    session.resumeKey = key ? key : "";
}

/// The session is made again. A service that does not answer is asked again at the next check.
EndReason resume(MirlSession& session) {
    if (session.resumeKey.empty()) return EndReason::Restarted;
    ZeqExchange exchange(newLogin(session, "resumeKey", session.resumeKey.c_str()), __func__);
    if (exchange.sendQuietly() == 0) {
        take(session, exchange.response());
        EventLog_write(3, 7, __func__, "%s works on in MIRL.", session.username);
        return EndReason::None;
    }
    return exchange.response() ? EndReason::AccountChanged : EndReason::None;
}

} // namespace

int Security_loginMirlUser(const char* username, const char* password, unsigned int& usrIndex,
                           bool& passwordIsInitialized, MirlSession& session) {
    session = {};
    session.username = username;
    ZeqExchange exchange(newLogin(session, "password", password), __func__);
    if (exchange.sendQuietly() != 0) return 1;
    take(session, exchange.response());
    usrIndex = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(exchange.response(), "userIndex"));

    std::string initialized;
    Errors errors;
    if (Db::db.readString("user", usrIndex, "passwordIsInitialized", initialized, errors) != 0) return 1;
    passwordIsInitialized = initialized == "is_true";
    return 0;
}

int Security_logoutMirlUser(unsigned int usrIndex, const MirlSession& session, Errors& errors) {
    std::string name;
    Errors nameErrors; // only the log line wants the name
    Db::db.readString("user", usrIndex, "name", name, nameErrors);

    ZeqExchange exchange(ZeqPtr(ZeqReq_adminSessionNewDeleteReq(session.index)), __func__);
    if (exchange.sendQuietly() != 0) {
        const json_t* refusals = ZeqRspUtil_getObjectParam(exchange.response(), "errors");
        if (refusals && ZeqRspUtil_getIndexedIntegerParam(refusals, 0, "errno") == kNotFound) return 0;
        if (exchange.response()) zeqRefused(exchange.response(), errors);
        return 1;
    }
    EventLog_write(3, 7, __func__, "%s logged out of MIRL.", name);
    return 0;
}

EndReason Security_checkMirlSession(MirlSession& session) {
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "adminSession", __func__);
    if (!exchange.ready()) return EndReason::None;
    ZeqReqUtil_setIntegerQuery(exchange.request(), "index", session.index);
    ZeqObj_setSelect(exchange.request(), "index");
    if (exchange.sendQuietly() == 0 || !exchange.response()) return EndReason::None;
    const json_t* errors = ZeqRspUtil_getObjectParam(exchange.response(), "errors");
    const char* detail = ZeqRspUtil_getIndexedStringParam(errors, 0, "detail");
    const std::string why = detail ? detail : "";
    if (why == "service.detail.session_account") return EndReason::AccountChanged;
    if (why == "service.detail.session_ended") return EndReason::LoggedOutElsewhere;
    const auto number = ZeqRspUtil_getIndexedIntegerParam(errors, 0, "errno");
    return number == kNotFound || number == kNoEntries ? resume(session) : EndReason::None;
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
