// Which rule judges which request.
#include "platform/service/rules/Rules.h"

namespace zeqd {

namespace {

struct Row {
    Res id;
    Method method;
    Rule rule;
};
constexpr Row kRules[] = {
    {Res::Swx, Method::Set, switchChanged},
    {Res::Swx, Method::Delete, switchDeleted},
    {Res::Rx, Method::Set, deviceChanged},
    {Res::Rx, Method::Delete, deviceDeleted},
    {Res::Tx, Method::Set, deviceChanged},
    {Res::Tx, Method::Delete, deviceDeleted},
    {Res::User, Method::Create, userCreated},
    {Res::User, Method::Set, userChanged},
    {Res::User, Method::Delete, userDeleted},
    {Res::AdminSession, Method::Create, adminLogin},
    {Res::AdminSession, Method::Delete, adminLogout},
    {Res::UserSession, Method::Create, userLogin},
    {Res::UserSession, Method::Delete, userLogout},
    {Res::Connection, Method::Create, sessionConnected},
    {Res::Connection, Method::Delete, sessionDisconnected},
    {Res::Edid, Method::Create, edidCreated},
    {Res::Edid, Method::Set, edidChanged},
    {Res::Edid, Method::Delete, edidDeleted},
    {Res::Upgrade, Method::Create, upgradeCreated},
    {Res::Upgrade, Method::Delete, upgradeDeleted},
    {Res::SystemGlobals, Method::Set, globalsChanged},
    {Res::AlertsControl, Method::Set, alertsAction},
    {Res::EdidControl, Method::Set, edidAction},
    {Res::SwxControl, Method::Set, swxAction},
    {Res::RxControl, Method::Set, rxAction},
    {Res::TxControl, Method::Set, txAction},
    {Res::SimControl, Method::Set, simAction},
};

} // namespace

Rule findRule(Res id, Method method) {
    for (const Row& row : kRules)
        if (row.id == id && row.method == method) return row.rule;
    return nullptr;
}

} // namespace zeqd
