// Setup and teardown of a KVM session.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "shell/Security.h"

unsigned Db::createKvmSession(unsigned userIndex, unsigned rxIndex, unsigned txIndex,
                              Info_ConnectionMode mode, Errors& errors) {
    if (const unsigned result = Security_loginRxUser(userIndex, rxIndex, errors)) return result;
    ZeqExchange exchange(ZeqPtr(ZeqReq_connectionNewCreateReq()), __func__);
    ZeqReq_connectionSetRxIndex(exchange.request(), rxIndex);
    ZeqReq_connectionSetTxIndex(exchange.request(), txIndex);
    ZeqReq_connectionSetMode(exchange.request(), static_cast<int>(mode));
    return exchange.send(errors, "Cannot create KVM session.");
}

unsigned Db::destroyKvmSession(unsigned connectionIndex, Errors& errors) {
    ZeqExchange exchange(ZeqPtr(ZeqReq_connectionNewDeleteReq(connectionIndex)), __func__);
    if (!exchange.client()) return 1;
    const ZeqPtr connection =
        zeqRetrieve(ZeqReq_connectionRetrieveByIndex, exchange.client(), connectionIndex);
    if (!connection) return 1;
    const unsigned rxIndex = ZeqRsp_connectionGetRxIndex(connection.get());
    exchange.send(errors);
    // Whatever became of the delete: nobody stays logged in at a Receiver that was to be freed.
    Security_logoutUserByRxIndex(rxIndex, errors);
    return 0;
}
