// Firmware files of the simulated devices.
//
//   ZEQFW 1\n
//   type=rx\n            rx, tx or swx
//   version=3.2.0\n
//   size=65536\n         bytes of what follows the blank line
//   sha256=…\n           of the same, in hexadecimal
//   \n
//   the payload
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zeqd {

constexpr std::size_t kMaxFirmware = 64U << 20; ///< bytes of a firmware file

struct Firmware {
    std::string type;
    std::string version;
};

/// Nothing when the file is no sound firmware: wrong header, wrong size, wrong sum.
std::optional<Firmware> readFirmware(std::string_view file);

/// A firmware file with a payload of random bytes.
std::string makeFirmware(std::string_view type, std::string_view version, std::size_t size);

} // namespace zeqd
