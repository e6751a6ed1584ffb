// Monitor descriptions: any bytes give a report that a browser can be sent, and that tells all of them.
#include "views/peripherals/Edid.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

namespace {

constexpr std::size_t kRecord = 256, kBlock = 128;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string record(reinterpret_cast<const char*>(data), std::min(size, kRecord));
    record.resize(kRecord);
    Edid edid;
    edid.populate(record.data(), kRecord);
    const bool valid = edid.isValid();
    std::string manufacturer, product, report, again;
    edid.manufacturerIdGet(manufacturer);
    edid.productCodeGet(product);
    edid.fullDecodeGet(report);
    edid.fullDecodeGet(again);
    if (report != again || edid.isValid() != valid || manufacturer.size() != 3 || product.size() != 4)
        __builtin_trap();

    // The raw bytes, eight lines of sixteen, are the block.
    const std::string title = "Raw data (hexadecimal):\n";
    std::size_t at = title.size();
    for (std::size_t i = 0; i < kBlock; ++i) {
        if (i % 16 == 0 && report[at++] != '\n') __builtin_trap();
        const int byte = std::stoi(report.substr(at, 4), nullptr, 16);
        if (byte != static_cast<unsigned char>(record[i])) __builtin_trap();
        at += 4;
    }
    if ((report.find("Normal Header") == report.npos) == (report.find("Invalid Header!") == report.npos))
        __builtin_trap();

    const std::string shown = Edid::legible(report);
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const unsigned char c = static_cast<unsigned char>(shown[i]);
        if (c == '\n' || (c >= 0x20 && c <= 0x7E)) continue;
        if (shown.compare(i, 3, "\uFFFD") != 0) __builtin_trap();
        i += 2;
    }
    return 0;
}
