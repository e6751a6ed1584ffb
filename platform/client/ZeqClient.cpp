#include "platform/client/ZeqClient.h"

#include "platform/client/Connection.h"
#include "platform/client/EventLog.h"

/// A dead client keeps this much and no socket: its owner may replace it without closing it.
struct ZeqClient_s {
    std::unique_ptr<zeq::Connection> connection; // null once it has ended
};

namespace {

constexpr int kFacility = 7;

void drop(ZeqClient_s& client, const char* function) {
    EventLog_write(2, kFacility, function, "Connection to ZEQ Server ended: %s.",
                   client.connection->failure());
    client.connection.reset();
}

} // namespace

ZeqClient_s* ZeqClient_new(void) {
    const std::string path = zeq::socketPath();
    std::string why;
    auto connection = zeq::Connection::open(path, zeq::answerDeadline(), why);
    if (!connection) {
        EventLog_write(4, kFacility, "ZeqClient_new", "No connection to ZEQ Server at %s: %s.", path, why);
        return nullptr;
    }
    return new ZeqClient_s{std::move(connection)};
}

int ZeqClient_isValid(const ZeqClient_s* client) {
    if (!client || !client->connection) return 0;
    // Finding out that the service went away changes what the handle holds, not what it means.
    if (!client->connection->alive()) drop(*const_cast<ZeqClient_s*>(client), "ZeqClient_isValid");
    return client->connection ? 1 : 0;
}

void ZeqClient_close(ZeqClient_s* client) {
    delete client;
}

json_t* ZeqClient_getResponse(ZeqClient_s* client, json_t* request) {
    if (!client || !client->connection || !request) return nullptr;
    zeq::JsonPtr answer = client->connection->exchange(request);
    if (!answer && client->connection->ended()) {
        drop(*client, "ZeqClient_getResponse");
    } else if (!answer) {
        EventLog_write(1, kFacility, "ZeqClient_getResponse", "Request not sent: %s.",
                       client->connection->failure());
    }
    return answer.release();
}
