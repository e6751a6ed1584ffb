#include "platform/service/sim/Firmware.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/ValueLists.h"
#include "platform/service/record/Forms.h"

#include <sodium.h>

namespace zeqd {

namespace {

constexpr std::string_view kMagic = "ZEQFW 1\n";
constexpr std::size_t kMaxHeaderLine = 100;
constexpr std::size_t kMaxVersion = 24; ///< characters, the limit of "firmwareVersion"

std::string sum(std::string_view payload) {
    unsigned char hash[crypto_hash_sha256_BYTES];
    crypto_hash_sha256(hash, reinterpret_cast<const unsigned char*>(payload.data()), payload.size());
    char text[2 * sizeof hash + 1];
    return sodium_bin2hex(text, sizeof text, hash, sizeof hash);
}

/// Takes the line "key=value\n" off the front; empty when it is not that line.
std::string takeLine(std::string_view& file, std::string_view key) {
    const std::size_t end = file.substr(0, kMaxHeaderLine).find('\n');
    if (end == std::string_view::npos || !file.starts_with(key) || file.size() <= key.size() ||
        file[key.size()] != '=')
        return {};
    std::string value(file.substr(key.size() + 1, end - key.size() - 1));
    file.remove_prefix(end + 1);
    return value;
}

} // namespace

std::optional<Firmware> readFirmware(std::string_view file) {
    if (!file.starts_with(kMagic)) return std::nullopt;
    file.remove_prefix(kMagic.size());
    Firmware firmware{takeLine(file, "type"), takeLine(file, "version")};
    const std::string size = takeLine(file, "size");
    const std::string hash = takeLine(file, "sha256");
    if (findValue(values::deviceType, firmware.type) <= 0) return std::nullopt;
    if (firmware.version.empty() || firmware.version.size() > kMaxVersion ||
        !hasForm(Form::Printable, firmware.version))
        return std::nullopt;
    if (!file.starts_with('\n')) return std::nullopt;
    file.remove_prefix(1);
    if (size != std::to_string(file.size()) || hash != sum(file)) return std::nullopt;
    return firmware;
}

std::string makeFirmware(std::string_view type, std::string_view version, std::size_t size) {
    std::string payload(size, '\0');
    randombytes_buf(payload.data(), payload.size());
    std::string file(kMagic);
    file += "type=" + std::string(type) + "\nversion=" + std::string(version) + "\n";
    file += "size=" + std::to_string(size) + "\nsha256=" + sum(payload) + "\n\n";
    return file + payload;
}

} // namespace zeqd
