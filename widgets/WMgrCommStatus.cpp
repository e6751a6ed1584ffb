#include "widgets/WMgrCommStatus.h"

#include "db/Db.h"

namespace {

struct Keys {
    const char* client;
    const char* server;
};

constexpr Keys kPrimaryKeys = {"commStatusRestClientPrimary", "commStatusRestServerPrimary"};
constexpr Keys kAuxiliaryKeys = {"commStatusRestClientAuxiliary", "commStatusRestServerAuxiliary"};

bool isUp(const char* key) {
    std::string state;
    Db::Errors dropped;
    Db::db.readString("systemGlobals", 0, key, state, dropped);
    return state == "up";
}

const char* wordOf(bool client, bool server) {
    if (client && server) return "[RSnnn]Normal";
    if (server) return "[RSnnn]Server up, client down";
    return client ? "[RSnnn]Client up, server down" : "[RSnnn]Down";
}

} // namespace

WMgrCommStatus::WMgrCommStatus(MgrInstance instance, Wt::WContainerWidget* parent)
    : Wt::WText(parent), mInstance(instance) {}

void WMgrCommStatus::readFromDatabase() {
    const char* word = "[RSnnn]Down";
    if (Db::db.thisSwxIsManaged()) {
        const Keys& keys = mInstance == MgrInstance::Primary ? kPrimaryKeys : kAuxiliaryKeys;
        const bool client = isUp(keys.client);
        const bool server = isUp(keys.server);
        word = wordOf(client, server);
    }
    setText(tr(word));
}
