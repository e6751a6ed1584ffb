#include "platform/service/archive/Seal.h"

#include <sodium.h>

namespace zeqd {

namespace {

constexpr std::string_view kMagic{"ZEQSET1\0", 8};
constexpr std::size_t kNonce = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr std::size_t kHeader = 8 + crypto_pwhash_SALTBYTES + kNonce;
constexpr std::size_t kTag = crypto_aead_xchacha20poly1305_ietf_ABYTES;
constexpr unsigned long long kPasses = 3;
constexpr std::size_t kMemory = 64U << 20; ///< bytes
static_assert(kHeader == 48);

const unsigned char* bytes(std::string_view text) {
    return reinterpret_cast<const unsigned char*>(text.data());
}
unsigned char* bytes(std::string& text) {
    return reinterpret_cast<unsigned char*>(text.data());
}

class Key {
public:
    Key(const std::string& password, std::string_view salt) {
        mMade = crypto_pwhash(mBytes, sizeof mBytes, password.data(), password.size(), bytes(salt), kPasses,
                              kMemory, crypto_pwhash_ALG_ARGON2ID13) == 0;
    }
    ~Key() { sodium_memzero(mBytes, sizeof mBytes); }
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;

    bool made() const { return mMade; }
    const unsigned char* get() const { return mBytes; }

private:
    unsigned char mBytes[crypto_aead_xchacha20poly1305_ietf_KEYBYTES];
    bool mMade;
};

} // namespace

std::optional<std::string> seal(std::string_view plain, const std::string& password) {
    std::string file(kMagic);
    file.resize(kHeader);
    randombytes_buf(file.data() + kMagic.size(), kHeader - kMagic.size());
    const std::string header = file;
    const Key key(password, header.substr(kMagic.size(), crypto_pwhash_SALTBYTES));
    if (!key.made()) return std::nullopt;
    file.resize(kHeader + plain.size() + kTag);
    crypto_aead_xchacha20poly1305_ietf_encrypt(bytes(file) + kHeader, nullptr, bytes(plain), plain.size(),
                                               bytes(std::string_view(header)), kHeader, nullptr,
                                               bytes(std::string_view(header)) + kHeader - kNonce, key.get());
    return file;
}

bool isSealed(std::string_view file) {
    return file.starts_with(kMagic);
}

std::optional<std::string> unseal(std::string_view file, const std::string& password) {
    if (!isSealed(file) || file.size() < kHeader + kTag) return std::nullopt;
    const std::string_view header = file.substr(0, kHeader);
    const Key key(password, header.substr(kMagic.size(), crypto_pwhash_SALTBYTES));
    if (!key.made()) return std::nullopt;
    std::string plain(file.size() - kHeader - kTag, '\0');
    const std::string_view sealed = file.substr(kHeader);
    if (crypto_aead_xchacha20poly1305_ietf_decrypt(bytes(plain), nullptr, nullptr, bytes(sealed),
                                                   sealed.size(), bytes(header), kHeader,
                                                   bytes(header) + kHeader - kNonce, key.get()) != 0)
        return std::nullopt;
    return plain;
}

} // namespace zeqd
