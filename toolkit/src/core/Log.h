#pragma once

#include <string_view>

namespace Wt::Impl {

enum class LogLevel { Error, Warning, Info };

/// One line on standard error: time, level, scope ("server", "session ab12…"), text.
/// Control characters are shown as '?', so that foreign bytes forge no lines.
/// Thread-safe; never throws.
void log(LogLevel level, std::string_view scope, std::string_view text) noexcept;

} // namespace Wt::Impl
