// Requests and answers as frame payloads. Internal to the client library.
#ifndef PLATFORM_CLIENT_MESSAGE_H
#define PLATFORM_CLIENT_MESSAGE_H

#include <cstdint>
#include <jansson.h>
#include <memory>
#include <string>
#include <string_view>

namespace zeq {

struct JsonFree {
    void operator()(json_t* tree) const { json_decref(tree); }
};
using JsonPtr = std::unique_ptr<json_t, JsonFree>;

/// Writes the request's frame, header included, into `frame`. False when it cannot be sent: `why` then says
/// so, for the log. The request gets the member "id" and is otherwise left as it is.
bool encodeRequest(json_t* request, json_int_t id, std::string& frame, std::string& why);

/// Reads an answer to request `id`: an object with either "rows" or "errors", without its "id". Null when the
/// payload is anything else; `why` then says what is wrong with it. Safe for any bytes.
JsonPtr decodeAnswer(std::string_view payload, json_int_t id, std::string& why);

} // namespace zeq

#endif
