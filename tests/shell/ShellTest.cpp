#include "tests/shell/ShellTest.h"

#include "db/ZeqPtr.h"
#include "platform/client/ZeqClient.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"

namespace {

struct Client {
    ZeqClient_s* client = ZeqClient_new();
    ~Client() { ZeqClient_close(client); }
};

void send(ZeqPtr request, unsigned index) {
    if (index != 0) ZeqReqUtil_setIntegerParam(request.get(), "index", index);
    Client own;
    const ZeqPtr response(ZeqReqUtil_submit(request.get(), own.client));
    ASSERT_NE(response, nullptr);
    const json_t* errors = ZeqRspUtil_getObjectParam(response.get(), "errors");
    ASSERT_EQ(errors, nullptr) << json_dumps(errors, 0);
}

} // namespace

void ShellTest::store(const char* resource, unsigned index, const char* key, const char* value) {
    ZeqPtr request(ZeqReqUtil_newSetResource(resource));
    ZeqReqUtil_setStringParam(request.get(), key, value);
    send(std::move(request), index);
}

void ShellTest::store(const char* resource, unsigned index, const char* key, unsigned value) {
    ZeqPtr request(ZeqReqUtil_newSetResource(resource));
    ZeqReqUtil_setIntegerParam(request.get(), key, value);
    send(std::move(request), index);
}

void ShellTest::poke(const char* resource, unsigned index, const char* key, const char* value) {
    ZeqPtr request(ZeqReqUtil_newSetResource("simControl"));
    ZeqReqUtil_setStringParam(request.get(), "action", "poke");
    ZeqReqUtil_setStringParam(request.get(), "resource", resource);
    ZeqReqUtil_setIntegerParam(request.get(), "record", index);
    ZeqReqUtil_setStringParam(request.get(), "key", key);
    ZeqReqUtil_setStringParam(request.get(), "value", value);
    send(std::move(request), 0);
}

int ShellTest::count(const char* resource) {
    Client own;
    const ZeqPtr request(ZeqReqUtil_newGetResource(resource));
    const ZeqPtr response(ZeqReqUtil_submit(request.get(), own.client));
    if (!response) return -1;
    // An empty table answers with an error.
    if (ZeqRspUtil_getObjectParam(response.get(), "errors")) return 0;
    return ZeqRspUtil_numEntries(response.get());
}
