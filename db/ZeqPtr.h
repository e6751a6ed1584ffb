#pragma once

#include "platform/client/ZeqObj.h"

#include <memory>

struct ZeqFree {
    void operator()(json_t* tree) const { ZeqObj_free(tree); }
};

/// Owner of a request, a response or a collapsed table: frees it on every path.
/// release() hands a child to its parent.
using ZeqPtr = std::unique_ptr<json_t, ZeqFree>;
