#pragma once

#include "frame/MirlUtil.h"
#include "views/devices/list/DeviceKind.h"

/// A selected row as it was when an action began. Actions work on these: while they ask,
/// the list may be rebuilt.
struct SelectedDevice {
    Info_DeviceType type;
    unsigned index;
    char eid[kEidBufferSize];

    const DeviceResource& resource() const { return deviceResourceOf(type); }
    bool isThisSwx() const { return type == Info_DeviceType::Switch && index == kThisSwxIndex; }
};
