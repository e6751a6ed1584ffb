#pragma once

#include "session/Mailbox.h"
#include "session/PageSink.h"
#include "session/SessionHost.h"
#include "tests/toolkit/support/PageModel.h"
#include "web/WebSession.h"

#include <Wt/WApplication>
#include <Wt/WContainerWidget>

#include <memory>
#include <string>

namespace toolkit_test {

/// Takes the operations of a session and applies them to a page.
class Recorder : public Wt::Impl::PageSink {
public:
    void send(std::string operations) override;
    void finish(std::string operations) override;
    void begin(std::uint64_t number) override {
        loaded = number;
        page.clear();
    }

    PageModel page;
    std::uint64_t loaded = 1; ///< which load of the page this is
    std::size_t bytes = 0;    ///< sent so far
    std::string last;         ///< operations of the last flush that sent something
    std::string finished;     ///< the last operations
    bool ended = false;
};

Wt::Impl::StartRequest startRequest();

/// A session with an application, on the test's thread.
class PageSession {
public:
    PageSession();
    ~PageSession();

    Wt::WContainerWidget* root() { return application->root(); }
    /// What the last flush sends; empty: nothing.
    std::string flush();
    /// One message of the browser: a JSON array.
    void browser(const std::string& events);
    /// The page is loaded anew, and comes with that internal path.
    void reload(std::uint64_t number, const std::string& path = "");
    /// An event of a widget, with values of fields where wanted.
    void event(const Wt::Impl::RenderNode& node, const std::string& kind, const std::string& more = "");

    Recorder sink;
    Wt::Impl::Mailbox mailbox;
    Wt::Impl::WebSession session;
    std::unique_ptr<Wt::WEnvironment> environment;
    Wt::WApplication* application;
};

} // namespace toolkit_test
