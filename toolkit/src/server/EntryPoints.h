#pragma once

#include <Wt/WGlobal.h>

#include <string>
#include <vector>

namespace Wt::Impl {

/// An application at a path.
struct EntryPoint {
    std::string path; ///< absolute, no trailing slash except for "/"
    ApplicationCreator create;
    std::string favicon; ///< absolute path or empty
};

/// The page that starts the client modules, for any entry point with this favicon. `base`: deployment path
/// without its trailing slash.
std::string startPage(const std::string& base, const std::string& favicon);

} // namespace Wt::Impl
