// Bytes under a password, as SettingsArchive.h tells.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zeqd {

/// Nothing when memory runs out.
std::optional<std::string> seal(std::string_view plain, const std::string& password);

bool isSealed(std::string_view file);

/// Nothing when the password is another one, or a single bit has changed.
std::optional<std::string> unseal(std::string_view file, const std::string& password);

} // namespace zeqd
