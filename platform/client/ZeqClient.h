// Connection to the internal database service. Conventions: ZeqTypes.h.
#ifndef PLATFORM_CLIENT_ZEQCLIENT_H
#define PLATFORM_CLIENT_ZEQCLIENT_H

#include "platform/client/ZeqTypes.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Opens a connection. The socket's path is the environment's ZEQ_SOCKET, else /run/zeq/zeq.sock. 0 when
/// nobody listens there, the service is at its limit of clients, or it does not greet in time.
ZeqClient_s* ZeqClient_new(void);

/// Nonzero while requests can be sent. 0 for a null client, and for one whose connection has ended: the
/// service went away, did not answer in time, or sent something malformed. Such a client never recovers; a
/// new one is opened.
int ZeqClient_isValid(const ZeqClient_s* client);

/// Ends the connection and frees the handle, also that of a connection which has already ended.
/// Null is allowed.
void ZeqClient_close(ZeqClient_s* client);

/// Sends the request and waits for its answer, at most 5 s (environment ZEQ_TIMEOUT_MS, in milliseconds).
/// The request stays the caller's and may be sent again. 0 when no answer came: the connection has then
/// ended, unless the request itself could not be sent (too large, nested too deep, not UTF-8). A refusal by
/// the service is an answer, with "errors".
json_t* ZeqClient_getResponse(ZeqClient_s* client, json_t* request);

#ifdef __cplusplus
}
#endif

#endif
