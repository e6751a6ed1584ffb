#include <Wt/WApplication.h>

#include "core/Log.h"
#include "web/JsonText.h"
#include "web/PageNode.h"
#include "web/WebSession.h"

#include <Wt/WContainerWidget.h>
#include <Wt/WCssTheme.h>
#include <Wt/WLink.h>
#include <Wt/WMessageResourceBundle.h>
#include <Wt/WServer.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string_view>

namespace Wt {

using Impl::jsonText;
using Impl::WebSession;

namespace {

constexpr std::size_t kLongestPath = 2000; // bytes; a longer one was not made here

} // namespace

/// The turn of a thread that is not the session's own.
class WApplication::UpdateLock::Turn {
public:
    explicit Turn(std::shared_ptr<Impl::SessionLock> lock) : mLock(std::move(lock)) {
        mLock->take();
        mGranted = mLock->session() != nullptr;
        if (mGranted) WebSession::setCurrent(mLock->session());
    }
    ~Turn() {
        if (mGranted) {
            mLock->session()->wake();
            WebSession::setCurrent(mBefore);
        }
        mLock->leave();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

    bool granted() const { return mGranted; }

private:
    const std::shared_ptr<Impl::SessionLock> mLock;
    WebSession* const mBefore = WebSession::current();
    bool mGranted = false;
};

WApplication::UpdateLock::UpdateLock(WApplication* application) {
    if (!application) return;
    const WebSession* here = WebSession::current();
    mGranted = here && here->application() == application;
    if (mGranted) return;
    const auto lock = Impl::SessionLock::of(application);
    if (!lock) return;
    mTurn = std::make_shared<Turn>(lock);
    mGranted = mTurn->granted();
    if (!mGranted) mTurn.reset();
}

WApplication::UpdateLock::~UpdateLock() = default;

void WApplication::UpdateLock::release() {
    mGranted = false;
    mTurn.reset();
}

WApplication::WApplication(const WEnvironment& environment)
    : mSession(WebSession::current()), mEnvironment(&environment) {
    mSession->setApplication(this);
    mLocale = environment.locale();
    mInternalPath = mShownPath = environment.internalPath();
    mRoot = new WContainerWidget;
    mRoot->setStyleClass("Wt-root");
    mRoot->setInline(false);
    mSession->page().setRoot(mRoot);
    addChild(mRoot);
}

// Widgets, timers and resources that belong to the application find the session still there.
WApplication::~WApplication() {
    mSession->page().setRoot(nullptr);
    deleteChildren();
    mRoot = nullptr;
    delete mStrings;
    mStrings = nullptr;
    mSession->setApplication(nullptr);
}

WApplication* WApplication::instance() {
    WebSession* session = WebSession::current();
    return session ? session->application() : nullptr;
}

void WApplication::setTitle(const WString& title) {
    if (title == mTitle) return;
    mTitle = title;
    mSession->renderer().operation("[\"title\"," + jsonText(title.toUTF8()) + "]");
}

void WApplication::setCssTheme(const std::string& theme) {
    setTheme(new WCssTheme(theme, this));
}

void WApplication::setTheme(WTheme* theme) {
    if (theme->parent() != this) addChild(theme);
    mTheme = theme;
    for (const std::string& url : theme->styleSheetUrls()) useStyleSheet(url);
}

void WApplication::setLocale(const WLocale& locale) {
    mLocale = locale;
    if (!locale.name().empty()) mSession->renderer().operation("[\"lang\"," + jsonText(locale.name()) + "]");
    refresh();
}

void WApplication::setLocalizedStrings(WLocalizedStrings* strings) {
    delete mStrings;
    mStrings = strings;
    mBundle = nullptr;
}

WMessageResourceBundle& WApplication::messageResourceBundle() {
    if (!mBundle) {
        auto* bundle = new WMessageResourceBundle;
        setLocalizedStrings(bundle);
        mBundle = bundle;
    }
    return *mBundle;
}

void WApplication::useStyleSheet(const std::string& url) {
    if (std::find(mStyleSheets.begin(), mStyleSheets.end(), url) != mStyleSheets.end()) return;
    mStyleSheets.push_back(url);
    mSession->renderer().operation("[\"css\"," + jsonText(url) + "]");
}

void WApplication::useStyleSheet(const WLink& link, const std::string&) {
    useStyleSheet(link.url());
}

void WApplication::removeStyleSheet(const WLink& link) {
    if (std::erase(mStyleSheets, link.url()))
        mSession->renderer().operation("[\"nocss\"," + jsonText(link.url()) + "]");
}

void WApplication::enableUpdates(bool enabled) {
    mUpdatesEnabled += enabled ? 1 : -1;
}

void WApplication::triggerUpdate() {
    if (WebSession::current() == mSession) mSession->flush();
}

void WApplication::redirect(const std::string& url) {
    mSession->redirect(url);
}

void WApplication::changeSessionId() {
    mSession->recognised();
}

void WApplication::quit() {
    mQuited = true;
    mSession->quit();
}

void WApplication::quit(const WString& restartMessage) {
    if (!restartMessage.empty())
        mSession->renderer().operation("[\"over\"," + jsonText(restartMessage.toUTF8()) + "]");
    quit();
}

void WApplication::processEvents() {
    mSession->processEvents();
}
void WApplication::waitForEvent() {
    mSession->waitForEvent();
}
void WApplication::attachThread(bool attach) {
    if (attach)
        WebSession::setCurrent(mSession);
    else if (WebSession::current() == mSession)
        WebSession::setCurrent(nullptr);
}

void WApplication::setBodyClass(const std::string& styleClass) {
    mBodyClass = styleClass;
    mSession->page().setClasses(styleClass);
}

void WApplication::setHtmlClass(const std::string& styleClass) {
    mHtmlClass = styleClass;
    mSession->renderer().operation("[\"html\"," + jsonText(styleClass) + "]");
}

void WApplication::setConfirmCloseMessage(const WString& message) {
    if (message == mConfirmClose) return;
    mConfirmClose = message;
    mSession->renderer().operation("[\"confirm\"," + jsonText(message.toUTF8()) + "]");
}

void WApplication::setFocus(const std::string& id, int, int) {
    if (id.size() > 1 && id[0] == 'o')
        mSession->setFocused(static_cast<std::uint32_t>(std::strtoul(id.c_str() + 1, nullptr, 10)));
}

void WApplication::setInternalPath(const std::string& path, bool emitChange) {
    const std::string wanted = !path.empty() && path[0] == '/' ? path : "/" + path;
    if (wanted == mInternalPath) return;
    mInternalPath = wanted;
    if (emitChange) mInternalPathChanged.emit(wanted);
}

void WApplication::showPath() {
    if (mShownPath == mInternalPath) return;
    mShownPath = mInternalPath;
    mSession->renderer().operation("[\"path\"," + jsonText(mShownPath) + "]");
}

/// `stays`: the user is held where he is, by a modal dialog; the address goes back to it.
void WApplication::pathShown(std::string path, bool stays) {
    if (path.empty() || path[0] != '/' || path.size() > kLongestPath) return;
    mShownPath = std::move(path);
    if (stays || mShownPath == mInternalPath) return;
    mInternalPath = mShownPath;
    mInternalPathChanged.emit(mInternalPath);
}

/// What belongs to the page itself, for a page that was loaded anew.
void WApplication::showAgain() {
    Impl::Renderer& renderer = mSession->renderer();
    const auto tell = [&](const char* name, const std::string& text) {
        if (!text.empty()) renderer.operation("[\"" + std::string(name) + "\"," + jsonText(text) + "]");
    };
    tell("lang", mLocale.name());
    tell("title", mTitle.toUTF8());
    tell("html", mHtmlClass);
    tell("confirm", mConfirmClose.toUTF8());
    for (const std::string& url : mStyleSheets) tell("css", url);
}

const WEnvironment& WApplication::environment() const {
    return *mEnvironment;
}

std::string WApplication::sessionId() const {
    return mEnvironment->sessionId();
}

std::string WApplication::url(const std::string& internalPath) const {
    const std::string path = mEnvironment->deploymentPath().empty() ? "/" : mEnvironment->deploymentPath();
    if (internalPath.empty() || internalPath == "/") return path;
    std::string address = path + "?_=";
    for (const char c : internalPath) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isalnum(byte) || std::string_view("/-_.~,").find(c) != std::string_view::npos) {
            address += c;
        } else {
            constexpr char kHex[] = "0123456789ABCDEF";
            address += {'%', kHex[byte >> 4], kHex[byte & 15]};
        }
    }
    return address;
}

std::string WApplication::bookmarkUrl() const {
    return url(mInternalPath);
}

std::string WApplication::makeAbsoluteUrl(const std::string& url) const {
    if (url.find("://") != std::string::npos) return url;
    const std::string origin = mEnvironment->urlScheme() + "://" + mEnvironment->hostName();
    return origin + (url.empty() || url[0] != '/' ? "/" : "") + url;
}

std::string WApplication::appRoot() {
    std::string root;
    if (WServer* server = WServer::instance()) root = server->appRoot();
    if (root.empty())
        if (const char* variable = std::getenv("WT_APP_ROOT")) root = variable;
    if (!root.empty() && root.back() != '/') root += '/';
    return root;
}

std::string WApplication::resourcesUrl() {
    return "resources/";
}

void WApplication::log(const std::string& type, const std::string& message) const {
    using Impl::LogLevel;
    const LogLevel level = type == "error" || type == "fatal" ? LogLevel::Error
                           : type.starts_with("warn")         ? LogLevel::Warning
                                                              : LogLevel::Info;
    Impl::log(level, "session " + sessionId(), message);
}

void WApplication::refresh() {
    if (mStrings) mStrings->refresh();
    if (mRoot) mRoot->refresh();
}

void WApplication::notify(const WEvent& event) {
    event.mWork->handle();
}

void WApplication::unload() {
    quit();
}

WCssTheme::WCssTheme(const std::string& name, WObject* parent) : WTheme(parent), mName(name) {}

std::string WCssTheme::resourcesUrl() const {
    return WApplication::resourcesUrl() + "themes/" + mName + "/";
}

std::vector<std::string> WCssTheme::styleSheetUrls() const {
    if (mName.empty()) return {};
    return {resourcesUrl() + "wt.css"};
}

} // namespace Wt
