#pragma once

#include <Wt/WEnvironment.h>
#include <Wt/WEvent.h>
#include <Wt/WObject.h>
#include <Wt/WSignal.h>
#include <Wt/WString.h>

#include <cstdint>
#include <memory>

namespace Wt {

class WContainerWidget;
class WLink;
class WLocalizedStrings;
class WMessageResourceBundle;
class WResource;
class WTheme;

namespace Impl {
class WebSession;
}

/// Name of a language and its customs.
class WLocale {
public:
    WLocale() = default;
    WLocale(const char* name) : mName(name) {}
    WLocale(const std::string& name) : mName(name) {}

    const std::string& name() const { return mName; }
    bool operator==(const WLocale& other) const = default;

private:
    std::string mName;
};

/// One per session. Everything happens on the session's own thread; instance() finds the application there.
class WApplication : public WObject {
public:
    /// Proof that the session may be changed now. The session's own thread has it at once.
    /// Another thread waits until the session handles no event (it may stand in WDialog::exec());
    /// then instance() is the application there too, until the last copy of the lock has gone.
    /// Not granted when the session has ended: ask before use.
    /// What was changed goes to the browser when the lock goes, or earlier by triggerUpdate().
    class UpdateLock {
    public:
        explicit UpdateLock(WApplication* application);
        UpdateLock(const UpdateLock& other) = default;
        UpdateLock& operator=(const UpdateLock& other) = default;
        ~UpdateLock();
        void release(); ///< this copy's share; it is not granted any more
        operator bool() const { return mGranted; }

    private:
        class Turn; // of another thread
        std::shared_ptr<Turn> mTurn;
        bool mGranted = false;
    };

    explicit WApplication(const WEnvironment& environment);
    ~WApplication() override;

    static WApplication* instance();
    UpdateLock getUpdateLock() { return UpdateLock(this); }

    void setTitle(const WString& title);
    void setCssTheme(const std::string& theme);
    void setTheme(WTheme* theme); ///< takes ownership
    void setLocale(const WLocale& locale);
    void setLocalizedStrings(WLocalizedStrings* strings); ///< takes ownership
    void useStyleSheet(const std::string& url);
    void useStyleSheet(const WLink& link, const std::string& media = "all");
    void removeStyleSheet(const WLink& link);
    /// Sends what has changed now; with an UpdateLock from another thread too.
    void triggerUpdate();
    /// Server push. Timers and nested event loops need none: the session's channel is always open.
    void enableUpdates(bool enabled = true);
    /// Sends the browser to another address at the next flush.
    void redirect(const std::string& url);
    /// Ends the session after the current event.
    virtual void quit();
    virtual void quit(const WString& restartMessage);
    /// To be called when the user has been recognised, at every login: the secrets that browser and page had
    /// before the login are replaced, and the session counts as a user's from now on (docs/toolkit-server.md). Its
    /// public name, sessionId(), is no secret and stays, so that logs and WServer::post() go on.
    void changeSessionId();
    /// Sends what has changed and handles the events that wait, without waiting for more.
    void processEvents();
    /// Handles events until one arrived. Ends by an exception of the toolkit when the session ends.
    void waitForEvent();
    /// Makes (or stops making) this the application of the calling thread, without waiting for it: for a
    /// thread that works while a handler of the session waits for it. Others take an UpdateLock.
    void attachThread(bool attach = true);
    void setBodyClass(const std::string& styleClass);
    void setHtmlClass(const std::string& styleClass);
    void setConfirmCloseMessage(const WString& message);
    void setFocus(const std::string& id, int selectionStart = -1, int selectionEnd = -1);
    /// Puts the path into the browser's address, as a new entry of its history. "/" is no place: the first path takes
    /// its entry. What is set last before the next flush counts.
    void setInternalPath(const std::string& path, bool emitChange = false);
    void deferRendering() {}
    void resumeRendering() {}

    const WEnvironment& environment() const;
    const WString& title() const { return mTitle; }
    WContainerWidget* root() const { return mRoot; }
    WTheme* theme() const { return mTheme; }
    const WLocale& locale() const { return mLocale; }
    WLocalizedStrings* localizedStrings() const { return mStrings; }
    /// The bundle that the application begins with.
    WMessageResourceBundle& messageResourceBundle();
    bool updatesEnabled() const { return mUpdatesEnabled > 0; }
    bool isQuited() const { return mQuited; }
    std::string sessionId() const;
    /// Address of the application, with `internalPath` in the form "?_=/path".
    std::string url(const std::string& internalPath = std::string()) const;
    std::string resolveRelativeUrl(const std::string& url) const { return url; }
    std::string makeAbsoluteUrl(const std::string& url) const;
    /// Address that leads to the present internal path.
    std::string bookmarkUrl() const;
    std::string internalPath() const { return mInternalPath; }
    /// Folder that WT_APP_ROOT names, with a slash at its end; empty if there is none.
    static std::string appRoot();
    static std::string resourcesUrl();
    static std::string relativeResourcesUrl() { return resourcesUrl(); }
    void log(const std::string& type, const std::string& message) const;

    Signal<::int64_t>& requestTooLarge() { return mRequestTooLarge; }
    /// The user went to another path: Back, Forward, or an address of his own.
    Signal<std::string>& internalPathChanged() { return mInternalPathChanged; }

    virtual void initialize() {}
    virtual void finalize() {}
    virtual void refresh();

protected:
    /// Every event passes here. Handlers run inside the call of this class's own notify().
    virtual void notify(const WEvent& event);
    /// The browser lost its connection, or a resource was asked for after the end. Nothing by default.
    virtual void unload();

private:
    friend class Impl::WebSession;

    void showAgain();
    void showPath();
    void pathShown(std::string path, bool stays);

    Impl::WebSession* mSession;
    const WEnvironment* mEnvironment; // not owned
    WContainerWidget* mRoot = nullptr;
    WTheme* mTheme = nullptr;
    WLocalizedStrings* mStrings = nullptr;     // owned; null before the first use of the bundle
    WMessageResourceBundle* mBundle = nullptr; // same object as mStrings, or null
    std::vector<std::string> mStyleSheets;
    std::string mBodyClass;
    WString mTitle;
    WLocale mLocale;
    std::string mInternalPath, mShownPath;
    std::string mHtmlClass;
    WString mConfirmClose;
    int mUpdatesEnabled = 0;
    bool mQuited = false;
    Signal<::int64_t> mRequestTooLarge{this};
    Signal<std::string> mInternalPathChanged{this};
};

} // namespace Wt
