#pragma once

#include "session/Mailbox.h"
#include "session/ResourceExchange.h"

#include <Wt/Http/Request.h>
#include <Wt/Http/Response.h>

#include <memory>
#include <mutex>
#include <string>

namespace Wt {

class WResource;

namespace Impl {

/// Leads from I/O threads to a session that may be gone.
struct SessionLink {
    std::mutex mutex;
    Mailbox* mailbox = nullptr; // null: the session is gone
    void post(std::function<void()> call);
};

/// One answer of a resource, piece by piece: the next piece is asked for when the browser has
/// taken the last one.
class ResourceAnswer : public std::enable_shared_from_this<ResourceAnswer> {
public:
    ResourceAnswer(std::shared_ptr<ResourceExchange> exchange, WResource& resource,
                   std::shared_ptr<SessionLink> link);

    /// Runs the resource for the next piece. Inside the session.
    void proceed();
    /// The resource is going away.
    void resourceGone() { mResource = nullptr; }
    /// Another piece, if the answer waits for one.
    void haveMoreData();

    bool finished() const { return mFinished; }
    const WResource* resource() const { return mResource; }

private:
    void start(const Http::Response& response, std::int64_t wholeSize);
    void sent(bool taken);

    std::shared_ptr<ResourceExchange> mExchange;
    WResource* mResource;
    std::shared_ptr<SessionLink> mLink;
    Http::Request mRequest;
    Http::ResponseContinuation mContinuation;
    bool mStarted = false, mFinished = false, mInFlight = false;
};

/// Value of a Content-Disposition header for a file name of any characters (RFC 6266).
std::string contentDisposition(bool inlined, const std::string& fileName);

} // namespace Impl
} // namespace Wt
