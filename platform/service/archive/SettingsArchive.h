// Settings files. "settings.tar.gz" is a compressed archive with the one member "settings.json".
// "settings.cze" is the same archive behind a password:
//
//   8 bytes  "ZEQSET1" and a NUL
//   16 bytes salt of the key (Argon2id of the password, 3 passes over 64 MiB)
//   24 bytes nonce
//   the archive under XChaCha20-Poly1305, with the 48 bytes before it as additional data
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zeqd {

constexpr std::size_t kMaxArchive = 32U << 20; ///< bytes of a settings file
constexpr std::size_t kMaxSettings =
    128U << 20; ///< bytes of the settings in it, unpacked: 40,000 devices and more

/// The bytes of a settings file; without a password it is not protected. Nothing when memory runs out.
std::optional<std::string> packSettings(std::string_view settings, const std::string& password);

/// The settings in a file, or nothing with a message key in `why`. Takes nothing on trust: the wrong
/// password, damage, foreign archives, other members, links, members that are too large are all refused.
std::optional<std::string> unpackSettings(std::string_view file, const std::string& password,
                                          std::string& why);

/// Writes the file into the folder beside the one before: whole, or not at all. Answers what failed.
std::string saveSettings(const std::string& folder, std::string_view settings, const std::string& password);
/// It takes the place of the one before, and of the one of the other kind. Answers what failed.
std::string publishSettings(const std::string& folder, bool sealed);
/// It goes again.
std::string dropSettings(const std::string& folder, bool sealed);

/// Removes every settings file of the folder, also half-made ones. Answers what failed.
std::string removeSettings(const std::string& folder);

/// Reads a plain file of at most kMaxArchive bytes and unpacks it.
std::optional<std::string> loadSettings(const std::string& path, const std::string& password,
                                        std::string& why);

} // namespace zeqd
