#pragma once

#include <Wt/WGlobal.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Wt::Impl {

class Mailbox;
class PageSink;

/// What is known of a browser when its script asks for a session. All text is UTF-8 and within the limits of
/// server/Limits.h; nothing here is trusted.
struct StartRequest {
    std::string sessionId;     ///< public name of the session (logs, WApplication::sessionId); no secret
    std::string scheme;        ///< "http" or "https"
    std::string hostName;      ///< the Host header, port included, as the browser sent it
    std::string clientAddress; ///< numeric address of the peer
    std::string clientNetwork; ///< whose limits count: the address, or an IPv6 peer's network
    std::string userAgent;
    std::string locale;                                         ///< first language of Accept-Language
    std::string path;                                           ///< path of the entry point, "/"
    std::map<std::string, std::vector<std::string>> parameters; ///< query of the page's URL
    std::map<std::string, std::string> headers;                 ///< lower-case names
    int width = 0, height = 0; ///< of the browser's viewport, CSS pixels; 0 = unknown
    ApplicationCreator create; ///< of the entry point
};

/// The toolkit's side of a session: the application object and its widgets. Made, run and destroyed on the
/// session's own thread.
class SessionHost {
public:
    virtual ~SessionHost() = default;

    /// Builds the application, then takes events from the mailbox until the session has ended.
    virtual void run() = 0;
};

/// Implemented by web/WebSession.cpp. `resourceBase`: URL prefix under which the session's resources are
/// reached, no trailing slash. References outlive the host.
std::unique_ptr<SessionHost> makeSessionHost(const StartRequest& start, Mailbox& mailbox, PageSink& sink,
                                             const std::string& resourceBase);

/// What makes the host of a session: makeSessionHost(), or a test's own.
using HostFactory = std::function<std::unique_ptr<SessionHost>(const StartRequest&, Mailbox&, PageSink&,
                                                               const std::string& resourceBase)>;

} // namespace Wt::Impl
