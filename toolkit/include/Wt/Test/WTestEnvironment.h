#pragma once

#include <Wt/WEnvironment.h>
#include <Wt/WSignal.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Wt {

class WDialog;

/// For tests that run without a server and a browser.
namespace Test {

/// The environment of an application under test. Make it first, then the application with it; widgets,
/// dialogs and resources then work in this thread, and WApplication::instance() is the application. A user is
/// played by emitting the widgets' event signals: `button->clicked().emit(Wt::WMouseEvent())`.
class WTestEnvironment : public WEnvironment {
public:
    explicit WTestEnvironment(EntryPointType type = Application);
    WTestEnvironment(const std::string& applicationPath, const std::string& configurationFile,
                     EntryPointType type = Application);
    ~WTestEnvironment() override;

    void setParameterMap(const Http::ParameterMap& parameters);
    void setCookies(const CookieMap& cookies);
    void setHeaderValue(const std::string& name, const std::string& value);
    void setLocale(const std::string& locale);     ///< default "en"
    void setHostName(const std::string& hostName); ///< default "localhost"
    void setUrlScheme(const std::string& scheme);  ///< default "http"
    void setUserAgent(const std::string& userAgent);
    void setClientAddress(const std::string& address);
    void setAppRoot(const std::string& folder);

    /// A dialog runs exec(): a handler plays the user, and ends the dialog (accept(), reject(), a button).
    /// When no handler has ended it, exec() throws std::logic_error rather than wait for ever.
    Signal<WDialog*>& dialogExecuted() const { return mDialogExecuted; }

    /// End a request, so that what is waiting for that (isolated deletions, rendering) is done;
    /// begin the next.
    void endRequest();
    void startRequest();

private:
    struct State;
    std::unique_ptr<State> mState;
    mutable Signal<WDialog*> mDialogExecuted;
};

} // namespace Test
} // namespace Wt
