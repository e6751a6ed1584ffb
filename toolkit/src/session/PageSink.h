#pragma once

#include <cstdint>
#include <string>

namespace Wt::Impl {

/// Where a session's page operations go: the numbered, acknowledged channel of a browser (Channel), or a
/// recorder in a test environment. Called on the session's thread.
class PageSink {
public:
    virtual ~PageSink() = default;

    /// `operations`: the text of a JSON array, not empty. Returns at once; the order is kept.
    virtual void send(std::string operations) = 0;

    /// The last operations of the session (for example a redirect); may be empty.
    virtual void finish(std::string operations) = 0;

    /// The application knows its user from now on; the page may ask for new secrets.
    virtual void recognised() {}
    /// What follows is for the page as it was loaded the `page`th time; what came before is not for it.
    virtual void begin(std::uint64_t page) { static_cast<void>(page); }
};

} // namespace Wt::Impl
