// One request of a client, interpreted.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"
#include "platform/service/core/Errors.h"
#include "platform/service/core/JsonPtr.h"

#include <string>
#include <string_view>
#include <vector>

namespace zeqd {

struct ZeqRequest {
    std::int64_t id = 0;
    Method method = Method::Get;
    const ResourceRow* resource = nullptr;
    std::vector<std::string> path;   ///< names of nested objects behind the resource, as in swx/network/ipv4
    JsonPtr query;                   ///< object or null
    JsonPtr params;                  ///< object or null; those of a nested path are wrapped into its objects
    std::vector<std::string> select; ///< empty = all keys
};

/// Adds to `errors` when the text is not a request; `request` is then of use only for its id.
void interpret(std::string_view text, ZeqRequest& request, Errors& errors);

} // namespace zeqd
