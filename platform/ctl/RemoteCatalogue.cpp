#include "platform/ctl/RemoteCatalogue.h"

namespace zeqctl {

namespace {

std::string text(const json_t* object, const char* key) {
    const char* value = json_string_value(json_object_get(object, key));
    return value ? value : "";
}

std::vector<std::string> texts(const json_t* object, const char* key) {
    const json_t* list = json_object_get(object, key);
    std::vector<std::string> out;
    for (std::size_t i = 0; i < json_array_size(list); ++i) {
        if (const char* value = json_string_value(json_array_get(list, i))) out.emplace_back(value);
    }
    return out;
}

KeyInfo toKey(const json_t* row) {
    const std::vector<std::string> values = texts(row, "values");
    return {text(row, "key"),
            text(row, "type"),
            text(row, "access"),
            values.empty() ? text(row, "limit") : joined(values),
            text(row, "default"),
            text(row, "note"),
            values};
}

std::vector<ResourceInfo> toInfos(const json_t* rows) {
    std::vector<ResourceInfo> out;
    for (std::size_t i = 0; i < json_array_size(rows); ++i) {
        const json_t* row = json_array_get(rows, i);
        if (!json_object_get(row, "key")) {
            out.push_back(
                {text(row, "resource"), text(row, "note"), text(row, "shape"), texts(row, "methods"), {}});
        } else if (!out.empty()) {
            out.back().keys.push_back(toKey(row));
        }
    }
    return out;
}

} // namespace

std::string ResourceInfo::typeOf(const std::string& key) const {
    for (const KeyInfo& info : keys) {
        if (info.key == key) return info.type;
    }
    return "";
}

std::string joined(const std::vector<std::string>& words) {
    std::string out;
    for (const std::string& word : words) out += (out.empty() ? "" : ", ") + word;
    return out;
}

std::vector<ResourceInfo> readCatalogue(RemoteService& service) {
    return toInfos(service.get("zeqCatalogue", nullptr, {}).get());
}

ResourceInfo readCatalogue(RemoteService& service, const std::string& resource) {
    const std::size_t slash = resource.find('/');
    const JsonPtr query(json_pack("{s:s}", "resource", resource.substr(0, slash).c_str()));
    std::vector<ResourceInfo> found = toInfos(service.get("zeqCatalogue", query.get(), {}).get());
    ResourceInfo info = found.empty() ? ResourceInfo{} : std::move(found.front());
    if (slash == resource.npos) return info;
    const std::string path = resource.substr(slash + 1) + "/";
    std::erase_if(info.keys, [&](const KeyInfo& key) { return !key.key.starts_with(path); });
    for (KeyInfo& key : info.keys) key.key.erase(0, path.size());
    return info;
}

} // namespace zeqctl
