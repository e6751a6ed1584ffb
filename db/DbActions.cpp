// Control actions: a write to an action resource, whose effect shows elsewhere.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

#include <initializer_list>

namespace {

struct NumberParam {
    const char* key;
    unsigned value;
};

struct TextParam {
    const char* key;
    const char* value;
};

void setParams(ZeqExchange& exchange, std::initializer_list<TextParam> texts,
               std::initializer_list<NumberParam> numbers = {}) {
    for (const TextParam& text : texts) ZeqReqUtil_setStringParam(exchange.request(), text.key, text.value);
    for (const NumberParam& number : numbers)
        ZeqReqUtil_setIntegerParam(exchange.request(), number.key, number.value);
}

} // namespace

unsigned Db::clearAllHistoricalAlerts(Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "alertsControl", __func__);
    setParams(exchange, {{"alertsAction", "clear_history"}});
    return exchange.send(errors, "Cannot create request to clear Historical Alerts.");
}

unsigned Db::ackAllAlerts(Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "alertsControl", __func__);
    setParams(exchange, {{"alertsAction", "ack_all"}});
    return exchange.send(errors, "Cannot create request to acknowledge Alerts.");
}

unsigned Db::ackSpecificAlert(unsigned instanceId, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "alertsControl", __func__);
    setParams(exchange, {{"alertsAction", "ack_specific"}}, {{"alertInstanceId", instanceId}});
    return exchange.send(errors, "Cannot create request to acknowledge Alert.");
}

unsigned Db::pushEdidToTx(unsigned txIndex, unsigned edidIndex, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "edidControl", __func__);
    setParams(exchange, {{"edidAction", "push"}}, {{"txIndex", txIndex}, {"edidIndex", edidIndex}});
    return exchange.send(errors, "Cannot create request to push monitor properties to transmitter.");
}

unsigned Db::pullEdidFromDevice(const std::string& deviceType, unsigned index, const std::string& name,
                                const std::string& description, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, "edidControl", __func__);
    setParams(exchange,
              {{"edidAction", "pull"}, {"edidName", name.c_str()}, {"edidDescription", description.c_str()}},
              {{deviceType == "rx" ? "rxIndex" : "txIndex", index}});
    return exchange.send(errors, "Cannot create request to retrieve monitor properties.");
}

unsigned Db::triggerLcdBacklightFlash(const char* eid, const char* resource, unsigned mode, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newSetResource, resource, __func__);
    // On purpose: 0 and 1 are moved up by one.
    setParams(exchange, {{"eid", eid}}, {{"lcdBacklightFlashDuration", mode < 2 ? mode + 1 : mode}});
    return exchange.send(errors, "Cannot write integer value to database.");
}

unsigned Db::createUpgradeRecord(const std::string& protocol, const std::string& location,
                                 const std::string& filename, const std::string& username,
                                 const std::string& password, unsigned& index, Errors& errors) {
    ZeqExchange exchange(ZeqReqUtil_newCreateResource, "upgrade", __func__);
    setParams(exchange, {{"protocol", protocol.c_str()},
                         {"location", location.c_str()},
                         {"filename", filename.c_str()},
                         {"username", username.c_str()},
                         {"password", password.c_str()}});
    if (exchange.send(errors, "Cannot create upgrade record.") != 0) return 1;
    index = static_cast<unsigned>(ZeqRspUtil_getIntegerParam(exchange.response(), "index"));
    return 0;
}
