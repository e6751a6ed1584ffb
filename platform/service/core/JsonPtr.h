// Owner of a jansson tree.
#pragma once

#include <jansson.h>
#include <memory>

namespace zeqd {

struct JsonFree {
    void operator()(json_t* json) const { json_decref(json); }
};
using JsonPtr = std::unique_ptr<json_t, JsonFree>;

} // namespace zeqd
