#include "views/devices/tabs/SwxConflict.h"

#include "db/DeviceState.h"

#include <algorithm>

bool noSwxInConflict(const std::vector<unsigned>& indexes) {
    return std::none_of(indexes.begin(), indexes.end(), [](unsigned index) {
        const auto state = readSwxState(index);
        return !state || state->inConflict();
    });
}
