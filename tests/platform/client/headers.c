/* The headers of the client library are C as well as C++; compiling this is the test. */
#include "platform/client/Attributes.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
