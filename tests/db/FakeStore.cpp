#include "tests/db/FakeStore.h"

#include <algorithm>
#include <stdexcept>

namespace {

std::string textOf(const json_t* value) {
    char* text = json_dumps(value, JSON_ENCODE_ANY | JSON_COMPACT | JSON_SORT_KEYS);
    std::string result = text ? text : "";
    free(text);
    return result;
}

std::string lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

// The records that a request names: "index" of "query" or "params", one number or several.
std::vector<unsigned> indexesOf(const json_t* place) {
    const json_t* index = json_object_get(place, "index");
    if (json_is_integer(index)) return {static_cast<unsigned>(json_integer_value(index))};
    std::vector<unsigned> indexes;
    for (std::size_t i = 0; i < json_array_size(index); ++i)
        indexes.push_back(static_cast<unsigned>(json_integer_value(json_array_get(index, i))));
    return indexes;
}

std::string refusalKey(const std::string& method, const std::string& resource, unsigned index) {
    return method + " " + resource + " " + std::to_string(index);
}

std::string errors(const std::string& error) {
    return R"({"errors":[)" + error + "]}";
}

} // namespace

FakeStore::FakeStore() : mPeer([this](const json_t* request) { return answer(request); }) {
    put("systemGlobals", 0,
        R"("mirlInactivityTimeout":10,"managedSetting":"non_managed","mirlBannerEnable":"disabled")");
    put("swx", 1, R"("mode":"master","cascadeRole":"controller","name":"Main room")");
}

void FakeStore::put(const std::string& resource, unsigned index, const std::string& members) {
    const std::string number = index ? R"("index":)" + std::to_string(index) : "";
    const std::string comma = index && !members.empty() ? "," : "";
    Json record(json_loads(("{" + number + comma + members + "}").c_str(), 0, nullptr));
    if (!record) throw std::invalid_argument("not the inside of an object: " + members);
    const std::lock_guard lock(mMutex);
    mRecords[resource][index] = std::move(record);
}

void FakeStore::refuse(const std::string& method, const std::string& resource, unsigned index,
                       const std::string& error) {
    const std::lock_guard lock(mMutex);
    mRefusals[refusalKey(method, resource, index)] = error;
}

void FakeStore::accept(const std::string& method, const std::string& resource, unsigned index) {
    const std::lock_guard lock(mMutex);
    mRefusals.erase(refusalKey(method, resource, index));
}

void FakeStore::hangUp() {
    const std::lock_guard lock(mMutex);
    mHangsUp = true;
}

std::string FakeStore::field(const std::string& resource, unsigned index, const std::string& key) {
    const std::lock_guard lock(mMutex);
    const json_t* value = json_object_get(mRecords[resource][index].get(), key.c_str());
    return value ? textOf(value) : "";
}

std::vector<std::string> FakeStore::requests() const {
    std::vector<std::string> all = mPeer.requests();
    const std::lock_guard lock(mMutex);
    all.erase(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(std::min(mForgotten, all.size())));
    return all;
}

void FakeStore::forget() {
    const std::size_t all = mPeer.requests().size();
    const std::lock_guard lock(mMutex);
    mForgotten = all;
}

FakePeer::Reply FakeStore::answer(const json_t* request) {
    const std::lock_guard lock(mMutex);
    if (mHangsUp) return FakePeer::hangUp();
    const std::string method = lower(json_string_value(json_object_get(request, "method")));
    const std::string resource = json_string_value(json_object_get(request, "resource"));
    const json_t* params = json_object_get(request, "params");
    const std::vector<unsigned> indexes =
        indexesOf(method == "get" ? json_object_get(request, "query") : params);
    if (const std::string refused = refusal(method, resource, indexes); !refused.empty())
        return FakePeer::answer(request, errors(refused));
    const unsigned index = indexes.empty() ? 0 : indexes.front();
    if (method == "get") return FakePeer::answer(request, rowsOf(resource, indexes));
    if (method == "set") return FakePeer::answer(request, write(resource, index, params));
    if (method == "delete") {
        mRecords[resource].erase(index);
        return FakePeer::answer(request, R"({"rows":[]})");
    }
    const unsigned made = mRecords[resource].empty() ? 1 : mRecords[resource].rbegin()->first + 1;
    mRecords[resource][made].reset(json_deep_copy(params));
    json_object_set_new(mRecords[resource][made].get(), "index", json_integer(made));
    return FakePeer::answer(request, R"({"rows":[{"index":)" + std::to_string(made) + "}]}");
}

std::string FakeStore::refusal(const std::string& method, const std::string& resource,
                               const std::vector<unsigned>& indexes) const {
    std::vector<unsigned> asked = indexes;
    if (asked.empty()) asked.push_back(0);
    for (const unsigned index : asked) {
        const auto found = mRefusals.find(refusalKey(method, resource, index));
        if (found != mRefusals.end()) return found->second;
    }
    return "";
}

std::string FakeStore::rowsOf(const std::string& resource, const std::vector<unsigned>& indexes) {
    const auto& records = mRecords[resource];
    std::string rows;
    const auto add = [&](const json_t* record) { rows += (rows.empty() ? "" : ",") + textOf(record); };
    for (const unsigned index : indexes) {
        const auto found = records.find(index);
        if (found == records.end()) return errors(R"({"errno":7})");
        add(found->second.get());
    }
    if (indexes.empty())
        for (const auto& [index, record] : records) add(record.get());
    return rows.empty() ? errors(R"({"errno":1009})") : R"({"rows":[)" + rows + "]}";
}

std::string FakeStore::write(const std::string& resource, unsigned index, const json_t* params) {
    Json& record = mRecords[resource][index];
    if (!record) record.reset(json_object());
    json_object_update(record.get(), const_cast<json_t*>(params));
    return R"({"rows":[]})";
}
