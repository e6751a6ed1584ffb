// The service as the commands see it: requests that succeed or throw.
#ifndef PLATFORM_CTL_REMOTESERVICE_H
#define PLATFORM_CTL_REMOTESERVICE_H

#include "platform/client/Connection.h"
#include "platform/ctl/Failure.h"

#include <memory>
#include <string>
#include <vector>

namespace zeqctl {

using zeq::JsonPtr;

/// The service said no. Its text has one line for each error.
class Refusal : public Failure {
public:
    Refusal(const std::string& text, bool noEntries) : Failure(Exit::Refused, text), mNoEntries(noEntries) {}
    /// The only reason is that the table is empty.
    bool noEntries() const { return mNoEntries; }

private:
    bool mNoEntries;
};

class RemoteService {
public:
    /// Connects at the first request.
    RemoteService(std::string socket, std::chrono::milliseconds deadline)
        : mSocket(std::move(socket)), mDeadline(deadline) {}

    /// The rows of the answer, an array. Throws Refusal, and Failure when the service cannot be reached; the
    /// next request then connects anew.
    JsonPtr request(json_t* request);
    /// Reads records: `query` and `select` may be null and are copied.
    JsonPtr get(const std::string& resource, json_t* query, const std::vector<std::string>& select);
    /// "set", "create" or "delete".
    JsonPtr write(const char* method, const std::string& resource, json_t* params);

private:
    std::string mSocket;
    std::chrono::milliseconds mDeadline;
    std::unique_ptr<zeq::Connection> mConnection;
};

} // namespace zeqctl

#endif
