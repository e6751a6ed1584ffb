#include "views/devices/tabs/SwxConflict.h"

#include "db/DeviceState.h"

#include <algorithm>

bool anySwxInConflict(const std::vector<unsigned>& indexes) {
    return std::any_of(indexes.begin(), indexes.end(), [](unsigned index) {
        const auto state = readSwxState(index);
        return !state || state->inConflict();
    });
}
