#pragma once

#include "db/Info.h"
#include "db/ThisSwx.h"

#include <string_view>

/// One kind of device, told by the text in the list's Type column. The texts are compared as they stand,
/// whatever the language of the interface.
struct DeviceKind {
    std::string_view typeText; // a Type text that begins with it is of this kind
    Info_DeviceType type;
    Info_DetailedDeviceType detail;
};

/// The order is the one in which a selection is put together from its kinds.
inline constexpr DeviceKind kDeviceKinds[] = {
    {"Receiver (G1)", Info_DeviceType::Receiver, Info_DetailedDeviceType::ReceiverG1},
    {"Receiver (G2)", Info_DeviceType::Receiver, Info_DetailedDeviceType::ReceiverG2},
    {"Transmitter (DVI)", Info_DeviceType::Transmitter, Info_DetailedDeviceType::TransmitterDvi},
    {"Transmitter (VGA)", Info_DeviceType::Transmitter, Info_DetailedDeviceType::TransmitterVga},
    {"Switch", Info_DeviceType::Switch, Info_DetailedDeviceType::Switch},
};

/// The kind of a Type text, null if it matches none.
constexpr const DeviceKind* deviceKindOf(std::string_view typeText) {
    for (const DeviceKind& kind : kDeviceKinds) {
        if (typeText.substr(0, kind.typeText.size()) == kind.typeText) return &kind;
    }
    return nullptr;
}

/// Where the database keeps devices of a type.
struct DeviceResource {
    Info_DeviceType type;
    const char* records; // resource of the records
    const char* control; // resource that takes commands by EID
};

/// The last row stands for an unknown type: its names are empty.
inline constexpr DeviceResource kDeviceResources[] = {
    {Info_DeviceType::Receiver, "rx", "rxControl"},
    {Info_DeviceType::Transmitter, "tx", "txControl"},
    {Info_DeviceType::Switch, "swx", "swxControl"},
    {Info_DeviceType::None, "", ""},
};

constexpr const DeviceResource& deviceResourceOf(Info_DeviceType type) {
    const DeviceResource* row = kDeviceResources;
    while (row->type != type && row->type != Info_DeviceType::None) ++row;
    return *row;
}
