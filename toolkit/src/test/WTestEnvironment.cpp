#include <Wt/Test/WTestEnvironment.h>

#include "session/SessionHost.h"
#include "test/TestSession.h"

#include <cctype>
#include <cstdlib>

namespace Wt::Test {

namespace {

Impl::StartRequest usualStart() {
    Impl::StartRequest start;
    start.sessionId = "testwtd";
    start.scheme = "http";
    start.hostName = "localhost";
    start.clientAddress = "127.0.0.1";
    start.userAgent = "TestEnvironment";
    start.locale = "en";
    start.path = "/";
    start.width = 1280;
    start.height = 1024;
    return start;
}

std::string withSlash(std::string folder) {
    if (!folder.empty() && folder.back() != '/') folder += '/';
    return folder;
}

} // namespace

struct WTestEnvironment::State {
    explicit State(Impl::StartRequest& start) : session(start) {}
    Impl::TestSession session;
};

WTestEnvironment::WTestEnvironment(EntryPointType type) : WTestEnvironment("/", std::string(), type) {}

WTestEnvironment::WTestEnvironment(const std::string& applicationPath, const std::string&, EntryPointType)
    : WEnvironment(usualStart()) {
    start().path = applicationPath;
    mState = std::make_unique<State>(start());
    mState->session.session().dialogExecuted = [this](WDialog* dialog) { mDialogExecuted.emit(dialog); };
}

WTestEnvironment::~WTestEnvironment() = default;

void WTestEnvironment::setParameterMap(const Http::ParameterMap& parameters) {
    start().parameters = parameters;
}

void WTestEnvironment::setCookies(const CookieMap& cookies) {
    std::string header;
    for (const auto& [name, value] : cookies) header += (header.empty() ? "" : "; ") + name + "=" + value;
    start().headers["cookie"] = header;
}

void WTestEnvironment::setHeaderValue(const std::string& name, const std::string& value) {
    std::string lower;
    for (const char c : name) lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    start().headers[lower] = value;
}

void WTestEnvironment::setLocale(const std::string& locale) {
    start().locale = locale;
}
void WTestEnvironment::setHostName(const std::string& hostName) {
    start().hostName = hostName;
}
void WTestEnvironment::setUrlScheme(const std::string& scheme) {
    start().scheme = scheme;
}
void WTestEnvironment::setUserAgent(const std::string& userAgent) {
    start().userAgent = userAgent;
}
void WTestEnvironment::setClientAddress(const std::string& address) {
    start().clientAddress = address;
}

void WTestEnvironment::setAppRoot(const std::string& folder) {
    ::setenv("WT_APP_ROOT", withSlash(folder).c_str(), 1);
}

void WTestEnvironment::endRequest() {
    mState->session.session().processEvents();
}
void WTestEnvironment::startRequest() {
    mState->session.session().makeCurrent();
}

} // namespace Wt::Test
