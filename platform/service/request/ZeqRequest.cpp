#include "platform/service/request/ZeqRequest.h"

#include "platform/service/catalogue/Catalogue.h"

#include <algorithm>

namespace zeqd {

namespace {

constexpr std::size_t kMaxSelect = 256;
constexpr std::size_t kMaxPath = 4;

struct MethodName {
    std::string_view name;
    Method method;
};
constexpr MethodName kMethods[] = {
    {"get", Method::Get}, {"set", Method::Set}, {"create", Method::Create}, {"delete", Method::Delete}};

void readMethod(const json_t* root, ZeqRequest& request, Errors& errors) {
    const json_t* text = json_object_get(root, "method");
    if (!json_is_string(text)) return addError(errors, Errno::MissingMethod);
    std::string name = json_string_value(text);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const MethodName& row : kMethods) {
        if (row.name == name) {
            request.method = row.method;
            return;
        }
    }
    addError(errors, Errno::InvalidMethod, "use get, set, create, delete");
}

/// Follows the nested names behind the resource; all of them must be objects of the catalogue.
bool knownPath(const ResourceRow& row, const std::vector<std::string>& path) {
    std::span<const KeyRow> rows = row.keys;
    for (const std::string& name : path) {
        const int at = findKey(rows, name);
        if (at < 0 || rows[static_cast<std::size_t>(at)].type != Type::Object) return false;
        rows = rows[static_cast<std::size_t>(at)].rows();
    }
    return true;
}

void readResource(const json_t* root, ZeqRequest& request, Errors& errors) {
    const json_t* text = json_object_get(root, "resource");
    if (!json_is_string(text) || json_string_length(text) == 0)
        return addError(errors, Errno::MissingResource);
    std::string_view rest(json_string_value(text), json_string_length(text));
    const std::size_t end = std::min(rest.find('/'), rest.size());
    request.resource = findResource(rest.substr(0, end));
    rest.remove_prefix(end);
    while (!rest.empty() && request.path.size() <= kMaxPath) {
        rest.remove_prefix(1);
        const std::size_t length = std::min(rest.find('/'), rest.size());
        request.path.emplace_back(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    if (!request.resource || !knownPath(*request.resource, request.path)) {
        request.resource = nullptr;
        addError(errors, Errno::InvalidResource);
    }
}

void readSelect(const json_t* root, ZeqRequest& request, Errors& errors) {
    const json_t* list = json_object_get(root, "select");
    if (!list || json_is_null(list)) return;
    if (!json_is_array(list))
        return addError(errors, Errno::InvalidParameter, "select must be a list of keys");
    if (json_array_size(list) > kMaxSelect) return addError(errors, Errno::TooLarge, "select");
    for (std::size_t i = 0; i < json_array_size(list); ++i) {
        const json_t* key = json_array_get(list, i);
        if (!json_is_string(key))
            return addError(errors, Errno::InvalidParameter, "select must be a list of keys");
        std::string name = json_string_value(key);
        if (std::find(request.select.begin(), request.select.end(), name) == request.select.end())
            request.select.push_back(std::move(name));
    }
}

JsonPtr readObject(const json_t* root, const char* name, Errors& errors) {
    json_t* value = json_object_get(root, name);
    if (!value || json_is_null(value)) return nullptr;
    if (!json_is_object(value)) {
        addError(errors, Errno::InvalidParameter, std::string(name) + " must be an object");
        return nullptr;
    }
    return JsonPtr(json_incref(value));
}

/// {"index":1,"ipAddress":…} of swx/network/ipv4 becomes {"index":1,"network":{"ipv4":{"ipAddress":…}}}.
void wrapParams(ZeqRequest& request) {
    if (request.path.empty() || !request.params) return;
    JsonPtr inner(json_copy(request.params.get()));
    JsonPtr index(json_incref(json_object_get(inner.get(), "index")));
    json_object_del(inner.get(), "index");
    for (auto name = request.path.rbegin(); name != request.path.rend(); ++name) {
        JsonPtr outer(json_object());
        json_object_set_new(outer.get(), name->c_str(), inner.release());
        inner = std::move(outer);
    }
    if (index) json_object_set_new(inner.get(), "index", index.release());
    request.params = std::move(inner);
}

/// A user's target list by itself is the key "target" of the user.
void resolveView(ZeqRequest& request) {
    if (request.resource->id != Res::UserTargetList) return;
    request.resource = &resource(Res::User);
    if (request.select.empty()) request.select.push_back("target");
}

} // namespace

void interpret(std::string_view text, ZeqRequest& request, Errors& errors) {
    const JsonPtr root(json_loadb(text.data(), text.size(), JSON_REJECT_DUPLICATES, nullptr));
    if (!json_is_object(root.get())) return addError(errors, Errno::InvalidSyntax);
    const json_t* id = json_object_get(root.get(), "id");
    if (json_is_integer(id)) request.id = json_integer_value(id);
    readMethod(root.get(), request, errors);
    readResource(root.get(), request, errors);
    if (!errors.empty()) return;
    // A part is read and changed; only whole records come and go.
    const bool whole = request.method == Method::Create || request.method == Method::Delete;
    if (!request.resource->allows(request.method) || (whole && !request.path.empty()))
        return addError(errors, Errno::MethodNotSupported, std::string(request.resource->name));
    readSelect(root.get(), request, errors);
    request.query = readObject(root.get(), "query", errors);
    request.params = readObject(root.get(), "params", errors);
    wrapParams(request);
    resolveView(request);
}

} // namespace zeqd
