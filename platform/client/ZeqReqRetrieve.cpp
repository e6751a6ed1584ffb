// Typed reads: each is one row, a resource and what selects its records.
#include "platform/client/Frame.h"
#include "platform/client/Message.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"

using zeq::JsonPtr;

namespace {

/// Attaches the select list given as JSON text, with or without its brackets.
/// False when it is not a list of texts.
bool attachSelect(json_t* request, const char* select) {
    if (!select) return true;
    std::string text(select);
    if (text.find_first_not_of(" \t\r\n") == text.find('[')) {
        if (text.find('[') == text.npos) return true;
    } else {
        text = '[' + text + ']';
    }
    if (!zeq::jsonDepthWithin(text, zeq::kJsonMaxDepth)) return false;
    JsonPtr list(json_loadb(text.data(), text.size(), 0, nullptr));
    if (!json_is_array(list.get())) return false;
    for (std::size_t i = 0; i < json_array_size(list.get()); ++i) {
        if (!json_is_string(json_array_get(list.get(), i))) return false;
    }
    if (json_array_size(list.get()) == 0) return true;
    return ZeqObj_setObject(request, "select", list.release()) == 0;
}

json_t* retrieveAll(ZeqClient_s* client, const char* resource, const char* select) {
    const JsonPtr request(ZeqReqUtil_newGetResource(resource));
    return attachSelect(request.get(), select) ? ZeqClient_getResponse(client, request.get()) : nullptr;
}

json_t* retrieveBy(ZeqClient_s* client, const char* resource, const char* key, uint32_t value,
                   const char* select = nullptr) {
    const JsonPtr request(ZeqReqUtil_newGetResource(resource));
    ZeqReqUtil_setIntegerQuery(request.get(), key, value);
    return attachSelect(request.get(), select) ? ZeqClient_getResponse(client, request.get()) : nullptr;
}

} // namespace

#define ZEQ_RETRIEVE_TABLE(resource)                                                                         \
    json_t* ZeqReq_##resource##Retrieve(ZeqClient_s* client, const char* select) {                           \
        return retrieveAll(client, #resource, select);                                                       \
    }
#define ZEQ_RETRIEVE_SINGLETON(resource)                                                                     \
    json_t* ZeqReq_##resource##Retrieve(ZeqClient_s* client) {                                               \
        return retrieveAll(client, #resource, nullptr);                                                      \
    }
#define ZEQ_RETRIEVE_BY(resource, What, key)                                                                 \
    json_t* ZeqReq_##resource##RetrieveBy##What(ZeqClient_s* client, uint32_t key) {                         \
        return retrieveBy(client, #resource, #key, key);                                                     \
    }

ZEQ_RETRIEVE_TABLE(swx)
ZEQ_RETRIEVE_TABLE(rx)
ZEQ_RETRIEVE_TABLE(tx)
ZEQ_RETRIEVE_TABLE(user)
ZEQ_RETRIEVE_TABLE(connection)
ZEQ_RETRIEVE_TABLE(userSession)
ZEQ_RETRIEVE_TABLE(historicalAlerts)
ZEQ_RETRIEVE_TABLE(unacknowledgedAlerts)
ZEQ_RETRIEVE_TABLE(edid)
ZEQ_RETRIEVE_TABLE(upgrade)
ZEQ_RETRIEVE_SINGLETON(cfgDefaults)
ZEQ_RETRIEVE_SINGLETON(systemGlobals)
ZEQ_RETRIEVE_BY(connection, Index, index)
ZEQ_RETRIEVE_BY(edid, Index, index)
ZEQ_RETRIEVE_BY(portStatus, Index, index)
ZEQ_RETRIEVE_BY(portStatus, SwxIndex, swxIndex)

json_t* ZeqReq_edidRetrieveByName(ZeqClient_s* client, const char* name) {
    if (!name) return nullptr;
    const JsonPtr request(
        json_pack("{s:s, s:s, s:{s:s}}", "method", "get", "resource", "edid", "query", "name", name));
    return ZeqClient_getResponse(client, request.get());
}

json_t* ZeqReq_userTargetListRetrieveByIndex(ZeqClient_s* client, uint32_t userIndex) {
    return retrieveBy(client, "user", "index", userIndex, "\"index\",\"target\"");
}
