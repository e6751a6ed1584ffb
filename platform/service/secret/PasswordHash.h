// Slow hashes of passwords (Argon2id), as text that carries its own parameters.
#pragma once

#include <string>
#include <string_view>

namespace zeqd {

/// Takes 50 to 100 ms on purpose; never on the event loop. Empty when there is not enough memory.
std::string hashPassword(std::string_view password);

/// The text is a hash as hashPassword makes them: of this kind, and of this cost.
bool isKnownHash(const std::string& text);

/// An empty hash accepts the empty password alone, and takes as long as any other.
bool verifyPassword(const std::string& hash, std::string_view password);

/// What an administrator's session is made again with when its connection to the service was lost: 64
/// hexadecimal digits that only who knows the stored hash can make, and good until the next password.
/// Empty for a user without a password.
std::string resumeKey(const std::string& hash, std::string_view name);
/// Takes the same time for every wrong key of the right length.
bool verifyResumeKey(const std::string& hash, std::string_view name, std::string_view key);

/// A hash that no password has, to spend the same time on users who do not exist.
const std::string& decoyHash();

} // namespace zeqd
