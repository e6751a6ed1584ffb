// Answers: what the decoder accepts is read with every kind of getter.
#include "platform/client/Message.h"
#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqRsp.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr const char* kKeys[] = {"index",  "name",    "mode",  "status", "data", "ports",
                                 "target", "network", "errno", "errors", ""};

void readAll(const json_t* tree, int depth) {
    const int rows = ZeqRspUtil_numEntries(tree);
    for (const char* key : kKeys) {
        for (const int row : {-1, 0, rows - 1, rows}) {
            if (const char* text = ZeqRspUtil_getIndexedStringParam(tree, row, key)) (void)std::strlen(text);
            ZeqRspUtil_getIndexedIntegerParam(tree, row, key);
            char buffer[16];
            if (ZeqRspUtil_getIndexedBinaryParam(tree, row, key, buffer, sizeof buffer) > sizeof buffer)
                __builtin_trap();
        }
        ZeqRspUtil_getBooleanParam(tree, key);
        if (depth > 3) continue;
        if (const json_t* object = ZeqRspUtil_getObjectParam(tree, key)) readAll(object, depth + 1);
        json_t* collapsed = ZeqObj_collapse(tree, "index", key);
        readAll(collapsed, depth + 2);
        ZeqObj_free(collapsed);
    }
    if (ZeqRsp_connectionGetMode(tree) > 3 || ZeqRsp_swxGetStatus(tree) > 7 || ZeqRsp_userGetRole(tree) > 2) {
        __builtin_trap();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string why;
    const zeq::JsonPtr answer = zeq::decodeAnswer({reinterpret_cast<const char*>(data), size}, 1, why);
    if (!answer == why.empty()) __builtin_trap(); // a refusal has a reason, an acceptance none
    readAll(answer.get(), 0);
    return 0;
}
