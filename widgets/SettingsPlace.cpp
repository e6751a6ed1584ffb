#include "widgets/SettingsPlace.h"

#include "platform/client/ZeqRsp.h"

#include <sstream>

SettingsPlace::SettingsPlace(const char* resourcePath) {
    std::istringstream steps(resourcePath);
    std::getline(steps, resource, '/');
    for (std::string name; std::getline(steps, name, '/');) path.push_back(name);
}

ZeqPtr SettingsPlace::within(const json_t* answer) const {
    ZeqPtr place;
    for (const std::string& name : path) {
        place.reset(ZeqObj_collapse(place ? place.get() : answer, "index", name.c_str()));
        if (ZeqRspUtil_numEntries(place.get()) == 0) return {};
    }
    return place;
}

json_t* SettingsPlace::into(json_t* params) const {
    for (const std::string& name : path) {
        json_t* inner = ZeqRspUtil_getObjectParam(params, name.c_str());
        if (!inner) {
            inner = ZeqObj_new();
            ZeqObj_setObject(params, name.c_str(), inner);
        }
        params = inner;
    }
    return params;
}
