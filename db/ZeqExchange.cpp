#include "db/ZeqExchange.h"

#include "db/Db.h"
#include "platform/client/EventLog.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

namespace {

thread_local unsigned long tExchanges = 0;
thread_local unsigned long tUnanswered = 0;

} // namespace

ZeqExchange::ZeqExchange(const char* caller) : mCaller(caller) {
    Db::db.getZeqClient(mClient);
}

ZeqExchange::ZeqExchange(NewRequest make, const char* resource, const char* caller) : ZeqExchange(caller) {
    if (mClient) adopt(ZeqPtr(make(resource)));
}

ZeqExchange::ZeqExchange(ZeqPtr request, const char* caller) : ZeqExchange(caller) {
    if (mClient) adopt(std::move(request));
}

ZeqExchange ZeqExchange::setRecord(const char* resource, unsigned index, const char* caller) {
    ZeqExchange exchange(caller);
    if (!exchange.mClient) return exchange;
    exchange.adopt(ZeqPtr(ZeqObj_new()));
    if (!exchange.mRequest) return exchange;
    ZeqReqUtil_setMethod(exchange.request(), "SET");
    ZeqReqUtil_setResource(exchange.request(), resource);
    json_t* params = ZeqObj_new();
    if (index != 0) ZeqObj_setInt32(params, "index", static_cast<int32_t>(index));
    ZeqObj_setObject(exchange.request(), "params", params);
    return exchange;
}

void ZeqExchange::adopt(ZeqPtr request) {
    mRequest = std::move(request);
    if (!mRequest) EventLog_write(1, 7, mCaller, "Cannot create ZEQ request object.");
}

bool ZeqExchange::answered() {
    mResponse.reset();
    if (!mClient) zeqCountUnanswered();
    if (!ready()) return false;
    zeqCountExchange();
    mResponse.reset(ZeqClient_getResponse(mClient, mRequest.get()));
    if (!mResponse) zeqCountUnanswered();
    return mResponse != nullptr;
}

unsigned ZeqExchange::send(std::vector<std::string>& errors, const char* noAnswer) {
    if (answered()) return zeqRefused(mResponse.get(), errors);
    if (ready() && noAnswer) EventLog_write(1, 7, mCaller, noAnswer);
    return 1;
}

unsigned ZeqExchange::sendQuietly() {
    return answered() && !ZeqRspUtil_getObjectParam(mResponse.get(), "errors") ? 0 : 1;
}

json_t* ZeqExchange::params() const {
    return ZeqRspUtil_getObjectParam(mRequest.get(), "params");
}

unsigned zeqRefused(const json_t* response, std::vector<std::string>& errors) {
    const json_t* errorsArray = ZeqRspUtil_getObjectParam(response, "errors");
    if (!errorsArray) return 0;
    Db::db.interpZeqErrors(errorsArray, errors, false);
    Db::db.logZeqErrors(errors);
    return 1;
}

unsigned long zeqExchangeCount() {
    return tExchanges;
}

void zeqCountExchange() {
    ++tExchanges;
}

unsigned long zeqUnansweredCount() {
    return tUnanswered;
}

void zeqCountUnanswered() {
    ++tUnanswered;
}
