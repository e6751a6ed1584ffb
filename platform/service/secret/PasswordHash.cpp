#include "platform/service/secret/PasswordHash.h"

#include <sodium.h>
#include <vector>

namespace zeqd {

namespace {

// Three passes over 16 MiB cost 50 to 100 ms of a small processor and leave the idle service's memory alone.
constexpr unsigned long long kPasses = 3;
constexpr std::size_t kMemory = 16U << 20; ///< bytes

} // namespace

std::string hashPassword(std::string_view password) {
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str_alg(hash, password.data(), password.size(), kPasses, kMemory,
                              crypto_pwhash_ALG_ARGON2ID13) != 0)
        return {};
    return hash;
}

bool isKnownHash(const std::string& text) {
    return text.starts_with("$argon2id$v=19$") && text.size() < crypto_pwhash_STRBYTES &&
           crypto_pwhash_str_needs_rehash(text.c_str(), kPasses, kMemory) == 0;
}

bool verifyPassword(const std::string& hash, std::string_view password) {
    const std::string& against = hash.empty() ? decoyHash() : hash;
    const bool matches = crypto_pwhash_str_verify(against.c_str(), password.data(), password.size()) == 0;
    return hash.empty() ? password.empty() : matches;
}

std::string resumeKey(const std::string& hash, std::string_view name) {
    if (hash.empty()) return {};
    // A hash of Argon2 is printable, so the zero byte keeps name and hash apart.
    const std::string message = "administrator session of " + std::string(name) + '\0' + hash;
    unsigned char key[crypto_generichash_BYTES];
    crypto_generichash(key, sizeof key, reinterpret_cast<const unsigned char*>(message.data()),
                       message.size(), nullptr, 0);
    char text[2 * sizeof key + 1];
    return sodium_bin2hex(text, sizeof text, key, sizeof key);
}

bool verifyResumeKey(const std::string& hash, std::string_view name, std::string_view key) {
    const std::string right = resumeKey(hash, name);
    return !right.empty() && key.size() == right.size() &&
           sodium_memcmp(key.data(), right.data(), right.size()) == 0;
}

const std::string& decoyHash() {
    static const std::string hash = [] {
        std::vector<char> random(32);
        randombytes_buf(random.data(), random.size());
        return hashPassword({random.data(), random.size()});
    }();
    return hash;
}

} // namespace zeqd
