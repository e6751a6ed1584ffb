// Reading responses: by key (ZeqRspUtil_*) and by kind of record (ZeqRsp_*). Conventions: ZeqTypes.h.
//
// A response holds "errors", an array of objects with "errno" (number) and sometimes "detail" (text), exactly
// when the request was refused.
#ifndef PLATFORM_CLIENT_ZEQRSP_H
#define PLATFORM_CLIENT_ZEQRSP_H

#include "platform/client/ZeqTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

json_t* ZeqRspUtil_getObjectParam(const json_t* response, const char* key);
const char* ZeqRspUtil_getStringParam(const json_t* response, const char* key);
json_int_t ZeqRspUtil_getIntegerParam(const json_t* response, const char* key);
int ZeqRspUtil_getBooleanParam(const json_t* response, const char* key);
/// Copies at most `capacity` bytes and returns how many; the rest of the buffer stays as it was.
unsigned ZeqRspUtil_getBinaryParam(const json_t* response, const char* key, void* buffer, unsigned capacity);

/// Rows of a response, collapsed table or array; 0 for a refusal.
int ZeqRspUtil_numEntries(const json_t* table);

json_t* ZeqRspUtil_getIndexedObjectParam(const json_t* table, int row, const char* key);
const char* ZeqRspUtil_getIndexedStringParam(const json_t* table, int row, const char* key);
json_int_t ZeqRspUtil_getIndexedIntegerParam(const json_t* table, int row, const char* key);
unsigned ZeqRspUtil_getIndexedBinaryParam(const json_t* table, int row, const char* key, void* buffer,
                                          unsigned capacity);

/// Frees the whole tree, whatever it is.
void ZeqRspUtil_free(json_t* response);

// Getters of one record: a row, or a response of one row. Enumerations come as their numbers,
// counted from 1 in the order given; a word that is not listed reads as the first number
// (access modes: as 3), an absent key as 0.
uint32_t ZeqRsp_connectionGetIndex(const json_t* record);
uint32_t ZeqRsp_connectionGetRxIndex(const json_t* record);
uint32_t ZeqRsp_connectionGetTxIndex(const json_t* record);
int ZeqRsp_connectionGetMode(const json_t* record); ///< share_mode, private_mode, share_or_private_mode
int64_t ZeqRsp_connectionGetSessionStartTime(const json_t* record);

uint32_t ZeqRsp_edidGetIndex(const json_t* record);
const char* ZeqRsp_edidGetName(const json_t* record);
const char* ZeqRsp_edidGetDescription(const json_t* record);

uint32_t ZeqRsp_rxGetIndex(const json_t* record);
const char* ZeqRsp_rxGetEid(const json_t* record);
const char* ZeqRsp_rxGetName(const json_t* record);

uint32_t ZeqRsp_txGetIndex(const json_t* record);
const char* ZeqRsp_txGetEid(const json_t* record);
const char* ZeqRsp_txGetName(const json_t* record);

uint32_t ZeqRsp_swxGetIndex(const json_t* record);
const char* ZeqRsp_swxGetEid(const json_t* record);
const char* ZeqRsp_swxGetName(const json_t* record);
int ZeqRsp_swxGetMode(const json_t* record); ///< master, slave
/// offline, dc_connected, conflict_is_master, conflict_other_master, isc_failure, ready, resetting
int ZeqRsp_swxGetStatus(const json_t* record);
int ZeqRsp_swxGetUsage(const json_t* record); ///< usable, exceeds_unmanaged_capacity, maintenance

uint32_t ZeqRsp_userGetIndex(const json_t* record);
const char* ZeqRsp_userGetName(const json_t* record);
const char* ZeqRsp_userGetFullName(const json_t* record);
const char* ZeqRsp_userGetMgrName(const json_t* record);
int ZeqRsp_userGetRole(const json_t* record);            ///< user, admin
int ZeqRsp_userGetModeAllowed(const json_t* record);     ///< as the mode of a connection
int ZeqRsp_userGetAllTargetAccess(const json_t* record); ///< disabled, enabled

uint32_t ZeqRsp_userSessionGetRxIndex(const json_t* record);
int64_t ZeqRsp_userSessionGetSessionStartTime(const json_t* record);

#ifdef __cplusplus
}
#endif

#endif
