#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace Wt::Impl {

/// One line per answered request, in the common log format. Queries are left out, and of a resource's address
/// the part that grants access. Thread-safe.
class AccessLog {
public:
    /// `file`: empty for standard output, "-" for no log. Throws WServer::Exception if it can't be opened.
    explicit AccessLog(const std::string& file);
    ~AccessLog();

    AccessLog(const AccessLog&) = delete;
    AccessLog& operator=(const AccessLog&) = delete;

    void write(std::string_view address, std::string_view method, std::string_view target, int status,
               std::uint64_t bytes);

private:
    int mFile = -1; ///< -1: no log
    bool mOwned = false;
};

/// The target as it may be written down.
std::string loggedTarget(std::string_view target);

} // namespace Wt::Impl
