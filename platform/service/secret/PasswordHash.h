// Slow hashes of passwords (Argon2id), as text that carries its own parameters.
#pragma once

#include <string>
#include <string_view>

namespace zeqd {

/// Takes 50 to 100 ms on purpose; never on the event loop. Empty when there is not enough memory.
std::string hashPassword(std::string_view password);

/// An empty hash accepts the empty password alone, and takes as long as any other.
bool verifyPassword(const std::string& hash, std::string_view password);

/// A hash that no password has, to spend the same time on users who do not exist.
const std::string& decoyHash();

} // namespace zeqd
