#include "platform/service/sim/Attach.h"

#include "platform/service/domain/Alerts.h"
#include "platform/service/domain/Devices.h"
#include "platform/service/sim/Life.h"
#include "platform/service/sim/SwitchLife.h"

#include <set>

namespace zeqd {

namespace {

constexpr std::size_t kUnmanagedSwitches = 8; ///< more need a manager

struct Port {
    std::uint32_t swx = 0;
    std::uint32_t port = 0; ///< 0 = none free
};

Port freePort(const View& view) {
    std::set<std::pair<std::uint32_t, std::uint32_t>> taken;
    for (const Res kind : {Res::Rx, Res::Tx})
        view.each(kind, [&](const RecordPtr& device) {
            taken.emplace(device->number("simSwx"), device->number("simPort"));
            return true;
        });
    Port free;
    view.each(Res::Swx, [&](const RecordPtr& swx) {
        for (std::uint32_t port = 1; port <= swx->number("simPortCount") && free.port == 0; ++port)
            if (!taken.contains({swx->index(), port})) free = {swx->index(), port};
        return free.port == 0;
    });
    return free;
}

void exceed(Transaction& tx, std::int64_t now, Record& swx) {
    swx.choose("usage", "exceeds_unmanaged_capacity");
    raiseAlert(tx, now, alerts::kSwitchCapacity, swx.text("eid"),
               "Switch " + deviceLabel(swx) + " exceeds the capacity of an unmanaged system");
}

void attachSwitch(Transaction& tx, std::int64_t now, Record& swx) {
    swx.setText("partNumber", "SWX-36-10G").setText("firmwareVersion", "4.2.0");
    if (tx.count(Res::Swx) >= kUnmanagedSwitches &&
        tx.singleton(Res::SystemGlobals).is("managedSetting", "non_managed"))
        exceed(tx, now, swx);
    tx.later(span::kPlugIn, makeTask(Step::SwitchBack, Res::Swx, swx.index()));
}

void attachEnd(Transaction& tx, std::int64_t now, Record& device) {
    const bool rx = device.id() == Res::Rx;
    restoreFactory(tx, device, false);
    device.setText("partNumber", rx ? "RX-DVI-16" : "TX-DVI-S").setText("firmwareVersion", "3.1.4");
    if (rx) device.choose("detailedDeviceType", "rx_dvi_i_16");
    const Port port = freePort(tx);
    device.set("simSwx", port.port ? port.swx : kThisSwitch).set("simPort", port.port);
    if (port.port == 0) {
        device.choose("usage", "not_usable_swx_capacity");
        raiseAlert(tx, now, rx ? alerts::kReceiverCapacity : alerts::kTransmitterCapacity, device.text("eid"),
                   (rx ? "Receiver " : "Transmitter ") + device.text("eid") +
                       " exceeds the capacity of its Switch");
    }
    tx.later(span::kPlugIn, makeTask(Step::DeviceConfiguring, device.id(), device.index()));
}

} // namespace

void attachDevice(Transaction& tx, std::int64_t now, Res kind, const std::string& eid) {
    Record device(kind, tx.nextIndex(kind));
    device.setText("eid", eid).setText("serialNumber", "SN" + eid.substr(7)).choose("status", "offline");
    kind == Res::Swx ? attachSwitch(tx, now, device) : attachEnd(tx, now, device);
    tx.put(std::move(device));
}

void reviewCapacity(Transaction& tx, std::int64_t now, bool managed) {
    std::vector<Record> changed;
    std::size_t before = 0;
    tx.each(Res::Swx, [&](const RecordPtr& swx) {
        const bool exceeds = !managed && before++ >= kUnmanagedSwitches;
        if (exceeds ? swx->is("usage", "usable") : swx->is("usage", "exceeds_unmanaged_capacity"))
            changed.push_back(*swx);
        return true;
    });
    for (Record& swx : changed) {
        managed ? void(swx.choose("usage", "usable")) : exceed(tx, now, swx);
        tx.put(std::move(swx));
    }
}

} // namespace zeqd
