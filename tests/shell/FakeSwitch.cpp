#include "tests/shell/FakeSwitch.h"

#include <algorithm>

FakeSwitch::FakeSwitch() : mPeer([this](const json_t* request) { return answer(request); }) {
    set("user", "name", "\"admin\"");
    set("user", "passwordIsInitialized", "\"is_true\"");
    set("adminSession", "index", "1");
    set("adminSession", "userIndex", "1");
    set("systemGlobals", "mirlInactivityTimeout", "10");
    set("systemGlobals", "managedSetting", "\"non_managed\"");
    set("swx", "mode", "\"master\"");
    set("swx", "cascadeRole", "\"controller\"");
    set("swx", "name", "\"Main room\"");
}

void FakeSwitch::set(const std::string& resource, const std::string& key, const std::string& value) {
    const std::lock_guard lock(mMutex);
    if (value.empty()) {
        mFields[resource].erase(key);
    } else {
        mFields[resource][key] = value;
    }
}

void FakeSwitch::refuse(const std::string& resource, bool refused) {
    const std::lock_guard lock(mMutex);
    mRefused[resource] = refused;
}

int FakeSwitch::requestsWith(const std::string& text) const {
    const auto requests = mPeer.requests();
    return static_cast<int>(std::count_if(requests.begin(), requests.end(), [&](const std::string& request) {
        return request.find(text) != std::string::npos;
    }));
}

FakePeer::Reply FakeSwitch::answer(const json_t* request) {
    const std::lock_guard lock(mMutex);
    const char* name = json_string_value(json_object_get(request, "resource"));
    const std::string resource = name ? name : "";
    if (mRefused[resource]) return FakePeer::answer(request, R"({"errors":[{"errno":11}]})");
    std::string row;
    for (const auto& [key, value] : mFields[resource])
        row += (row.empty() ? "{\"" : ",\"") + key + "\":" + value;
    return FakePeer::answer(request, "{\"rows\":[" + (row.empty() ? row : row + "}") + "]}");
}
