#pragma once

#include "db/Db.h"

#include <optional>

// What a device is and does at present, by Db's status readers. Empty after a failed read and for index 0.

struct RxState {
    Info_DeviceStatus status{};
    Info_DeviceUpgradeStatus upgrade{};
    Info_DeviceUsage usage{};
    bool loggedIn = false;

    bool ready() const { return status == Info_DeviceStatus::Ready; }
    bool offline() const { return status == Info_DeviceStatus::Offline; }
};

struct TxState {
    Info_DeviceStatus status{};
    Info_DeviceUpgradeStatus upgrade{};
    Info_DeviceUsage usage{};
    bool connected = false;
    Info_ConnectionMode mode{}; // of the connection; None without one

    bool ready() const { return status == Info_DeviceStatus::Ready; }
    bool offline() const { return status == Info_DeviceStatus::Offline; }
};

struct SwxState {
    Info_SwxStatus status{};
    Info_DeviceUpgradeStatus upgrade{};
    Info_SwxUsage usage{};

    bool ready() const { return status == Info_SwxStatus::Ready; }
    bool offline() const { return status == Info_SwxStatus::Offline; }
    bool inConflict() const {
        return status == Info_SwxStatus::ConflictIsMaster || status == Info_SwxStatus::ConflictOtherMaster;
    }
};

std::optional<RxState> readRxState(unsigned index, Db::Errors& errors);
std::optional<TxState> readTxState(unsigned index, Db::Errors& errors);
std::optional<SwxState> readSwxState(unsigned index, Db::Errors& errors);

// For callers that tell nobody why a read failed.

std::optional<RxState> readRxState(unsigned index);
std::optional<TxState> readTxState(unsigned index);
std::optional<SwxState> readSwxState(unsigned index);
