// Large installations, for measuring.
#include "platform/service/demo/Installation.h"

#include <algorithm>
#include <array>

namespace zeqd {

namespace {

constexpr std::uint32_t kMostSwitches = 50;

struct Tally {
    std::array<std::uint32_t, kResourceCount> highest{};
    std::uint32_t devices = 0;
    std::uint32_t& operator[](Res id) { return highest[static_cast<std::size_t>(id)]; }
};

std::string eid(Res kind, std::uint32_t number) {
    char text[16];
    std::snprintf(text, sizeof text, "00B%X%02X-%06X", static_cast<unsigned>(kind) + 1, number >> 24,
                  number & 0xFFFFFF);
    return text;
}

Record makeSwitch(std::uint32_t index, std::uint32_t ports) {
    Record swx(Res::Swx, index);
    swx.setText("eid", eid(Res::Swx, index)).setText("name", "Rack " + std::to_string(index));
    swx.setText("serialNumber", "SW2" + std::to_string(100000 + index)).setText("partNumber", "SWX-36-10G");
    swx.setText("firmwareVersion", "4.2.0").choose("status", "ready").set("simPortCount", ports);
    swx.setText("location", "Machine hall, row " + std::to_string(index % 12 + 1));
    return swx;
}

Record makeDevice(Res kind, std::uint32_t index, std::uint32_t swx, std::uint32_t port) {
    const bool rx = kind == Res::Rx;
    Record device(kind, index);
    device.setText("eid", eid(kind, index));
    device.setText("name", (rx ? "Desk " : "Host ") + std::to_string(index));
    device.setText("location",
                   (rx ? "Control room " : "Machine hall, rack ") + std::to_string(index % 40 + 1));
    device.setText("serialNumber", (rx ? "RX" : "TX") + std::to_string(1000000 + index));
    device.setText("partNumber", rx ? "RX-DVI-16" : "TX-DVI-S").setText("firmwareVersion", "3.1.4");
    device.choose("status", "ready").set("simSwx", swx).set("simPort", port);
    if (rx)
        device.choose("detailedDeviceType", index % 2 ? "rx_dvi_i" : "rx_dvi_i_16");
    else
        device.choose("detailedDeviceType", index % 3 ? "tx_dvi_d" : "tx_vga")
            .set("simVideoMode", index % 10 + 1);
    return device;
}

} // namespace

void growInstallation(std::vector<RecordPtr>& records, std::uint32_t devices) {
    Tally tally;
    for (const RecordPtr& record : records) {
        tally[record->id()] = std::max(tally[record->id()], record->index());
        if (record->id() == Res::Rx || record->id() == Res::Tx) ++tally.devices;
    }
    if (devices <= tally.devices) return;
    const std::uint32_t wanted = devices - tally.devices;
    const std::uint32_t first = tally[Res::Swx] + 1;
    const std::uint32_t switches = std::clamp(wanted / 36 + 1, 1U, kMostSwitches - tally[Res::Swx]);
    const std::uint32_t ports = wanted / switches + 1;
    for (std::uint32_t i = 0; i < switches; ++i)
        records.push_back(std::make_shared<Record>(makeSwitch(first + i, ports)));
    for (std::uint32_t i = 0; i < wanted; ++i) {
        const Res kind = i % 2 ? Res::Tx : Res::Rx;
        records.push_back(
            std::make_shared<Record>(makeDevice(kind, ++tally[kind], first + i / ports, i % ports + 1)));
    }
}

} // namespace zeqd
