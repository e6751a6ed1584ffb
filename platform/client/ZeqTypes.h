// What every header of the client library of the internal database service relies on.
// C linkage; usable from C and C++.
//
// 1. Trees. Requests, responses, sub-objects, arrays and collapsed tables are all json_t trees (Jansson).
// 2. Owning results. What *_new*, ZeqObj_collapse, ZeqReq_*Retrieve*, ZeqClient_getResponse and
//    ZeqReqUtil_submit return belongs to the caller, who frees it once. ZeqObj_free, ZeqReqUtil_free and
//    ZeqRspUtil_free are one and the same: each takes any tree.
// 3. Children. A child given to ZeqObj_setObject, ZeqReqUtil_setObjectParam or ZeqObj_arrayAppendObject
//    belongs to the parent from then on, also when the call fails (it is then already freed). The pointer
//    may still be filled while the parent lives.
// 4. Borrowed results. What a getter returns (text, object, row) belongs to the tree it was read from and
//    dies with it.
// 5. Failure. A pointer result of 0 is a failure or an absent value. Operations that return int without
//    further words return 0 for success and 1 for failure, and a failure leaves the target as it was.
//    Nothing throws, nothing ends the process. A null object, key or text is a failure, never a crash.
// 6. Absent or wrongly typed values read as 0: text 0, number 0, boolean 0, object 0, no bytes.
// 7. Rows are counted from 0. A response, a collapsed table and a plain array are tables; the plain getters
//    read row 0 of a table, and the object itself when it is a single record or a row of one.
// 8. Units. Times are seconds since 1970 UTC. A record index is an unsigned 32-bit number from 1;
//    0 names no record. Text is UTF-8.
// 9. Threads. A client and the trees read through it are used by one thread at a time; different clients are
//    independent of each other.
#ifndef PLATFORM_CLIENT_ZEQTYPES_H
#define PLATFORM_CLIENT_ZEQTYPES_H

#include <jansson.h>
#include <stdint.h>

/// Connection to the service; opaque.
typedef struct ZeqClient_s ZeqClient_s;

#endif
