#pragma once

#include <map>
#include <string>
#include <vector>

namespace Wt {

class WServer;
namespace Impl {
struct StartRequest;
class WebSession;
} // namespace Impl

namespace Http {
typedef std::vector<std::string> ParameterValues;
typedef std::map<std::string, ParameterValues> ParameterMap;
} // namespace Http

/// What is known of the browser, taken when the session began. Nothing of it is trusted.
class WEnvironment {
public:
    typedef std::map<std::string, std::string> CookieMap;

    virtual ~WEnvironment();
    WEnvironment(const WEnvironment&) = delete;
    WEnvironment& operator=(const WEnvironment&) = delete;

    const Http::ParameterMap& getParameterMap() const;
    const Http::ParameterValues& getParameterValues(const std::string& name) const;
    /// The first value, or null.
    const std::string* getParameter(const std::string& name) const;
    /// Empty if there is none; the name in any case of letters.
    const std::string headerValue(const std::string& field) const;
    const std::string& hostName() const;  ///< as the browser used it, port included
    const std::string& urlScheme() const; ///< "http" or "https"
    const std::string& clientAddress() const;
    const std::string& userAgent() const;
    const std::string& referer() const;
    const std::string& accept() const;
    const std::string& deploymentPath() const;
    std::string internalPath() const;
    std::string sessionId() const;
    std::string locale() const; ///< first language that the browser prefers
    int screenWidth() const;    ///< of the viewport, CSS pixels, 0 = unknown
    int screenHeight() const;
    bool ajax() const { return true; }
    bool javaScript() const { return true; }
    bool supportsCookies() const { return true; }
    bool supportsCss3Animations() const { return true; }
    WServer* server() const;
    static const std::string libraryVersion();

protected:
    explicit WEnvironment(const Impl::StartRequest& start);

    Impl::StartRequest& start() { return *mStart; }

private:
    friend class Impl::WebSession;

    Impl::StartRequest* mStart; // owned
    std::string mReferer, mAccept;
};

} // namespace Wt
