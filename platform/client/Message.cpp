#include "platform/client/Message.h"

#include "platform/client/Frame.h"

namespace zeq {

namespace {

int appendTo(const char* bytes, std::size_t count, void* frame) {
    auto* out = static_cast<std::string*>(frame);
    if (out->size() + count > kFrameHeaderBytes + kRequestMaxBytes) return -1;
    out->append(bytes, count);
    return 0;
}

bool allObjects(const json_t* array) {
    for (std::size_t i = 0; i < json_array_size(array); ++i) {
        if (!json_is_object(json_array_get(array, i))) return false;
    }
    return true;
}

/// What is wrong with the members of an answer; null when nothing is.
const char* faultOf(const json_t* answer, json_int_t id) {
    const json_t* rows = json_object_get(answer, "rows");
    const json_t* errors = json_object_get(answer, "errors");
    const json_t* answered = json_object_get(answer, "id");
    if (!json_is_integer(answered)) return "answer without id";
    if (json_integer_value(answered) == 0 && errors) {
        const json_int_t number = json_integer_value(json_object_get(json_array_get(errors, 0), "errno"));
        return number == 8 ? "the service is at its limit of clients" : "the service refused the connection";
    }
    if (json_integer_value(answered) != id) return "answer to another request";
    if (!rows == !errors) return "answer with neither or both of rows and errors";
    if (rows && !(json_is_array(rows) && allObjects(rows))) return "rows are not an array of objects";
    if (errors && !(json_array_size(errors) > 0 && allObjects(errors)))
        return "errors are not an array of objects";
    return nullptr;
}

} // namespace

bool encodeRequest(json_t* request, json_int_t id, std::string& frame, std::string& why) {
    frame.assign(kFrameHeaderBytes, '\0');
    if (!json_is_object(request) || json_object_set_new(request, "id", json_integer(id)) != 0) {
        why = "request is not an object";
        return false;
    }
    if (json_dump_callback(request, appendTo, &frame, JSON_COMPACT) != 0) {
        why = "request is larger than 1 MiB or not UTF-8";
        return false;
    }
    const auto payload = std::string_view(frame).substr(kFrameHeaderBytes);
    if (!jsonDepthWithin(payload, kJsonMaxDepth)) {
        why = "request is nested too deep";
        return false;
    }
    const auto header = frameHeader(payload.size());
    frame.replace(0, header.size(), header.data(), header.size());
    return true;
}

JsonPtr decodeAnswer(std::string_view payload, json_int_t id, std::string& why) {
    if (!jsonDepthWithin(payload, kJsonMaxDepth)) {
        why = "answer is nested too deep";
        return nullptr;
    }
    json_error_t error;
    JsonPtr answer(json_loadb(payload.data(), payload.size(), JSON_REJECT_DUPLICATES, &error));
    if (!answer) {
        why = std::string("answer is not JSON: ") + error.text;
        return nullptr;
    }
    if (!json_is_object(answer.get())) {
        why = "answer is not an object";
        return nullptr;
    }
    if (const char* fault = faultOf(answer.get(), id)) {
        why = fault;
        return nullptr;
    }
    json_object_del(answer.get(), "id");
    return answer;
}

} // namespace zeq
