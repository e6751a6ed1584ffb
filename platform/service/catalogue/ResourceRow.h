// One row of the resource table.
#pragma once

#include "platform/service/catalogue/KeyRow.h"

namespace zeqd {

/// The numbers of the changeStatus records: what a reader polls to learn that data of a kind changed.
enum class InfoId : std::uint8_t {
    None = 0,
    Switch = 1,
    PortStatus = 2,
    SystemGlobals = 3,
    Defaults = 4,
    EventControl = 5,
    User = 6,
    Receiver = 7,
    Transmitter = 8,
    Edid = 9,
    Target = 10, ///< what a list of targets shows: Transmitters by EID and name, and the users' target lists
    Upgrade = 11,
    Alert = 12,
    UserSession = 13,
    AdminSession = 14,
    AlertHistory = 15,
    SwitchControl = 16,
    Connection = 17,
};
constexpr std::uint8_t kLastInfoId = 17;

/// The resources, in the order of the table in Catalogue.cpp.
enum class Res : std::uint8_t {
    Swx,
    Rx,
    Tx,
    User,
    UserTargetList,
    UserSession,
    AdminSession,
    Connection,
    Edid,
    Upgrade,
    SystemGlobals,
    CfgDefaults,
    EventLogControl,
    AlertLogControl,
    ChangeStatus,
    UnacknowledgedAlerts,
    HistoricalAlerts,
    PortStatus,
    RxUsbDiag,
    TxUsbDiag,
    AlertsControl,
    EdidControl,
    SwxControl,
    RxControl,
    TxControl,
    SimControl,
    ZeqHello,
    ZeqCatalogue,
    PendingSettings,
    Count,
};
constexpr std::size_t kResourceCount = static_cast<std::size_t>(Res::Count);

enum class Shape : std::uint8_t {
    Table,     ///< records with an index from 1
    Singleton, ///< one record, index 0
    Action,    ///< a set starts something; nothing is kept
    Computed,  ///< read only, made from other records when it is read
};

enum class Method : std::uint8_t { Get = 1, Set = 2, Create = 4, Delete = 8 };
constexpr std::uint8_t operator|(Method a, Method b) {
    return static_cast<std::uint8_t>(static_cast<std::uint8_t>(a) | static_cast<std::uint8_t>(b));
}
constexpr std::uint8_t operator|(std::uint8_t a, Method b) {
    return static_cast<std::uint8_t>(a | static_cast<std::uint8_t>(b));
}

struct ResourceRow {
    Res id;
    std::string_view name;
    Shape shape;
    std::uint8_t methods; ///< Method bits that clients may use
    bool durable;         ///< kept on disk
    InfoId moves;
    std::uint32_t capacity; ///< most records of a table
    std::span<const KeyRow> keys;
    std::string_view help;

    constexpr bool allows(Method method) const { return (methods & static_cast<std::uint8_t>(method)) != 0; }
};

} // namespace zeqd
