// Requests: by resource name (ZeqReqUtil_*) and ready made for one kind of record
// (ZeqReq_*). Conventions: ZeqTypes.h.
#ifndef PLATFORM_CLIENT_ZEQREQ_H
#define PLATFORM_CLIENT_ZEQREQ_H

#include "platform/client/ZeqTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// `resource` is a path with slashes, such as "swx" or "systemGlobals/rapParameters".
json_t* ZeqReqUtil_newGetResource(const char* resource);
json_t* ZeqReqUtil_newSetResource(const char* resource);
json_t* ZeqReqUtil_newCreateResource(const char* resource);
json_t* ZeqReqUtil_newDeleteResource(const char* resource);

/// For a request made by ZeqObj_new. Methods are "GET", "SET", "CREATE" and "DELETE", in any letter case.
int ZeqReqUtil_setMethod(json_t* request, const char* method);
int ZeqReqUtil_setResource(json_t* request, const char* resource);

/// Values of a write; "index" among them names the record that is written.
int ZeqReqUtil_setIntegerParam(json_t* request, const char* key, json_int_t value);
int ZeqReqUtil_setStringParam(json_t* request, const char* key, const char* text);
int ZeqReqUtil_setBooleanParam(json_t* request, const char* key, int value);
int ZeqReqUtil_setObjectParam(json_t* request, const char* key, json_t* object);

/// Selects a record of a read. Called again with the same key it selects one more:
/// the answer then has a row for each.
int ZeqReqUtil_setIntegerQuery(json_t* request, const char* key, json_int_t value);
int ZeqReqUtil_setSelect(json_t* request, const char* key);

/// The same exchange as ZeqClient_getResponse.
json_t* ZeqReqUtil_submit(json_t* request, ZeqClient_s* client);

/// Frees the whole tree, whatever it is.
void ZeqReqUtil_free(json_t* object);

// Reads of a whole table, sent at once. `select` lists the keys as JSON text, ["index","name"] or the same
// without the brackets; 0 asks for all. A list that is not of this form gives 0.
json_t* ZeqReq_swxRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_rxRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_txRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_userRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_connectionRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_userSessionRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_historicalAlertsRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_unacknowledgedAlertsRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_edidRetrieve(ZeqClient_s* client, const char* select);
json_t* ZeqReq_upgradeRetrieve(ZeqClient_s* client, const char* select);

// Reads of a singleton or of one record, all keys, sent at once.
json_t* ZeqReq_cfgDefaultsRetrieve(ZeqClient_s* client);
json_t* ZeqReq_systemGlobalsRetrieve(ZeqClient_s* client);
json_t* ZeqReq_connectionRetrieveByIndex(ZeqClient_s* client, uint32_t index);
json_t* ZeqReq_edidRetrieveByIndex(ZeqClient_s* client, uint32_t index);
json_t* ZeqReq_edidRetrieveByName(ZeqClient_s* client, const char* name);
json_t* ZeqReq_portStatusRetrieveByIndex(ZeqClient_s* client, uint32_t index);
json_t* ZeqReq_portStatusRetrieveBySwxIndex(ZeqClient_s* client, uint32_t swxIndex);
/// The user's "index" and "target" list.
json_t* ZeqReq_userTargetListRetrieveByIndex(ZeqClient_s* client, uint32_t userIndex);

// Requests that are built here and sent by ZeqReqUtil_submit or ZeqClient_getResponse. Modes and roles are
// given as numbers: mode 1 shared, 2 private, 3 shared or private; role 1 user, 2 administrator.
json_t* ZeqReq_connectionNewCreateReq(void);
int ZeqReq_connectionSetRxIndex(json_t* request, uint32_t rxIndex);
int ZeqReq_connectionSetTxIndex(json_t* request, uint32_t txIndex);
int ZeqReq_connectionSetMode(json_t* request, int mode);
json_t* ZeqReq_connectionNewDeleteReq(uint32_t index);

json_t* ZeqReq_userSessionNewCreateReq(void);
int ZeqReq_userSessionSetUserIndex(json_t* request, uint32_t userIndex);
int ZeqReq_userSessionSetRxIndex(json_t* request, uint32_t rxIndex);

json_t* ZeqReq_adminSessionNewCreateReq(void);
int ZeqReq_adminSessionSetIpAddress(json_t* request, const char* address);
json_t* ZeqReq_adminSessionNewDeleteReq(uint32_t index);

json_t* ZeqReq_userNewCreateReq(void);
int ZeqReq_userSetName(json_t* request, const char* name);
int ZeqReq_userSetFullName(json_t* request, const char* fullName);
int ZeqReq_userSetRole(json_t* request, int role);
int ZeqReq_userSetPassword(json_t* request, const char* password);
json_t* ZeqReq_userNewDeleteReq(uint32_t index);
json_t* ZeqReq_userNewUpdateReq(uint32_t index);
/// Takes the object parameter "target".
json_t* ZeqReq_userTargetListNewUpdateReq(uint32_t userIndex);

/// Takes the object parameter "network".
json_t* ZeqReq_swxNewUpdateReq(uint32_t index);
/// Takes the object parameter "rapParameters".
json_t* ZeqReq_systemGlobalsNewUpdateReq(void);
json_t* ZeqReq_edidNewDeleteReq(uint32_t index);

#ifdef __cplusplus
}
#endif

#endif
