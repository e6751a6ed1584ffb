#pragma once

/// Kinds of data whose changes the service counts: the index of a "changeStatus" record.
enum class InfoMgr_InfoID : unsigned {
    Switches = 1,
    Users = 6,
    Receivers = 7,
    Transmitters = 8,
    Edids = 9,
    Targets = 10,
    Alerts = 12,
    UserSessions = 13,
    AdminSessions = 14,
    AlertHistory = 15,
    Connections = 17
};
