#include "platform/ctl/RemoteService.h"

#include "platform/client/ZeqObj.h"
#include "platform/client/ZeqReq.h"
#include "platform/ctl/ErrorText.h"

#include <algorithm>

namespace zeqctl {

namespace {

constexpr int kNoEntries = 1009;

/// Details are texts, or keys of the interface's message bundle, whose last part says the same in short.
std::string detailText(std::string detail) {
    constexpr std::string_view kKeyPrefix = "service.detail.";
    if (!detail.starts_with(kKeyPrefix)) return detail;
    detail.erase(0, kKeyPrefix.size());
    std::replace(detail.begin(), detail.end(), '_', ' ');
    return detail;
}

/// The resource that a request is about; a request for the catalogue is about the one that it asks for.
std::string resourceOf(const json_t* request) {
    const json_t* asked = json_object_get(json_object_get(request, "query"), "resource");
    const json_t* name = json_is_string(asked) ? asked : json_object_get(request, "resource");
    return json_is_string(name) ? json_string_value(name) : "";
}

/// Where to look for what would have been right.
std::string hint(int number, const std::string& resource) {
    constexpr int kInvalidResource = 1005;
    constexpr int kUnknownParameter = 1013;
    if (number == kInvalidResource) return ": '" + resource + "'; zeqctl describe lists them";
    if (number == kUnknownParameter) return "; zeqctl describe " + resource + " lists the keys";
    return "";
}

[[noreturn]] void refuse(const json_t* errors, const std::string& resource) {
    std::string text;
    bool noEntries = true;
    for (std::size_t i = 0; i < json_array_size(errors); ++i) {
        const json_t* error = json_array_get(errors, i);
        const auto number = static_cast<int>(json_integer_value(json_object_get(error, "errno")));
        const char* detail = json_string_value(json_object_get(error, "detail"));
        noEntries = noEntries && number == kNoEntries;
        text += (i > 0 ? "\n" : "") + (errorText(number) + (" (" + std::to_string(number)) + ")");
        if (detail) text += ": " + detailText(detail);
        text += hint(number, resource);
    }
    throw Refusal(text, noEntries);
}

} // namespace

JsonPtr RemoteService::request(json_t* request) {
    std::string why;
    if (!mConnection) mConnection = zeq::Connection::open(mSocket, mDeadline, why);
    if (!mConnection) {
        throw Failure(Exit::NoService, "cannot reach the database service at " + mSocket + ": " + why);
    }
    JsonPtr answer = mConnection->exchange(request);
    if (!answer) {
        why = mConnection->failure();
        const bool unsent = !mConnection->ended();
        mConnection.reset();
        if (unsent) throw Failure(Exit::Usage, why);
        throw Failure(Exit::NoService, "no answer from the database service: " + why);
    }
    if (const json_t* errors = json_object_get(answer.get(), "errors")) refuse(errors, resourceOf(request));
    return JsonPtr(json_incref(json_object_get(answer.get(), "rows")));
}

JsonPtr RemoteService::get(const std::string& resource, json_t* query,
                           const std::vector<std::string>& select) {
    const JsonPtr get(ZeqReqUtil_newGetResource(resource.c_str()));
    if (query && json_object_size(query) > 0) ZeqObj_setObject(get.get(), "query", json_incref(query));
    for (const std::string& key : select) ZeqObj_setSelect(get.get(), key.c_str());
    return request(get.get());
}

JsonPtr RemoteService::write(const char* method, const std::string& resource, json_t* params) {
    const JsonPtr write(ZeqObj_new());
    ZeqReqUtil_setMethod(write.get(), method);
    ZeqReqUtil_setResource(write.get(), resource.c_str());
    ZeqObj_setObject(write.get(), "params", json_incref(params));
    return request(write.get());
}

} // namespace zeqctl
