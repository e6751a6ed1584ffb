#include <Wt/WEnvironment.h>

#include "session/SessionHost.h"

#include <Wt/WServer.h>

#include <cctype>

namespace Wt {

WEnvironment::WEnvironment(const Impl::StartRequest& start) : mStart(new Impl::StartRequest(start)) {
    mReferer = headerValue("referer");
    mAccept = headerValue("accept");
}

WEnvironment::~WEnvironment() {
    delete mStart;
}

const Http::ParameterMap& WEnvironment::getParameterMap() const {
    return mStart->parameters;
}

const Http::ParameterValues& WEnvironment::getParameterValues(const std::string& name) const {
    static const Http::ParameterValues none;
    const auto found = mStart->parameters.find(name);
    return found == mStart->parameters.end() ? none : found->second;
}

const std::string* WEnvironment::getParameter(const std::string& name) const {
    const Http::ParameterValues& values = getParameterValues(name);
    return values.empty() ? nullptr : &values.front();
}

const std::string WEnvironment::headerValue(const std::string& field) const {
    std::string lower;
    for (const char c : field) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto found = mStart->headers.find(lower);
    return found == mStart->headers.end() ? std::string() : found->second;
}

const std::string& WEnvironment::hostName() const {
    return mStart->hostName;
}
const std::string& WEnvironment::urlScheme() const {
    return mStart->scheme;
}
const std::string& WEnvironment::clientAddress() const {
    return mStart->clientAddress;
}
const std::string& WEnvironment::userAgent() const {
    return mStart->userAgent;
}
const std::string& WEnvironment::referer() const {
    return mReferer;
}
const std::string& WEnvironment::accept() const {
    return mAccept;
}
const std::string& WEnvironment::deploymentPath() const {
    return mStart->path;
}
std::string WEnvironment::internalPath() const {
    const std::string* path = getParameter("_");
    return path && !path->empty() && path->front() == '/' ? *path : "/";
}
std::string WEnvironment::sessionId() const {
    return mStart->sessionId;
}
std::string WEnvironment::locale() const {
    return mStart->locale;
}
int WEnvironment::screenWidth() const {
    return mStart->width;
}
int WEnvironment::screenHeight() const {
    return mStart->height;
}
WServer* WEnvironment::server() const {
    return WServer::instance();
}
const std::string WEnvironment::libraryVersion() {
    return "3.3.12";
}

} // namespace Wt
