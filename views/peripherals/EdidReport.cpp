#include "views/peripherals/EdidReport.h"

#include "views/peripherals/EdidText.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr unsigned char kHeader[8] = {0x00, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x00};
constexpr double kCmPerInch = 2.54;
constexpr int kFirstYear = 1990; // of manufacture

// Indents of raw bytes.
constexpr const char* kOfBlock = "\n\n   ";
constexpr const char* kOfField = "\n\n      ";

constexpr const char* kAnalogLevels[] = {
    "\n         0.700, 0.300 (1.000 V p-p)", "\n         0.714, 0.286 (1.000 V p-p)",
    "\n         1.000, 0.400 (1.400 V p-p)", "\n         0.700, 0.000 (0.700 V p-p)"};

// clang-format off
constexpr EdidFlag kAnalogInput[] = {
    {4, "\n         Pedestal: Expected", "\n         Pedestal: Not Expected"},
    {3, "\n         Separate Syncs: Supported", "\n         Separate Syncs: Not Supported"},
    {2, "\n         Composite Syncs: Supported", "\n         Composite Syncs: Not Supported"},
    {1, "\n         Sync-on-Green: Supported", "\n         Sync-on-Green: Not Supported"},
    {0, "\n         Serration during composite or SoG: Required",
        "\n         Serration during composite or SoG: Not Required"},
};
constexpr EdidFlag kDigitalInput = {
    0, "\n         VESA DFP 1.x TMDS CRGB\n         1 pixel/clock\n         Up to 8 bits/color MSB aligned"
       "\n         DE active high",
       "\n         Not VESA DFP 1.x TMDS CRGB Compliant"};

constexpr EdidFlag kPowerSaving[] = {
    {7, "\n      DPMS Standby: Supported", "\n      DPMS Standby: Not Supported"},
    {6, "\n      DPMS Suspend: Supported", "\n      DPMS Suspend: Not Supported"},
    {5, "\n      DPMS Active Off/Very Low Power: Supported", "\n      DPMS Active Off/Very Low Power: Not Supported"},
};
constexpr const char* kDisplayTypes[] = {
    "\n      Display Type: Monochrome / grayscale display", "\n      Display Type: RGB Color display",
    "\n      Display Type: Non-RGB multicolor display (e.g. RGY)", "\n      Display Type: Undefined"};
constexpr EdidFlag kFeatures[] = {
    {2, "\n      Color Space: sRGB standard default", "\n      Color Space: Non-Standard"},
    {1, "\n      Preferred Timing Mode: Defined in Detailed Timing Block #1",
        "\n      Preferred Timing Mode: Not Defined in Detailed Timing Block #1"},
    {0, "\n      Default GTF: Supported", "\n      Default GTF: Not Supported"},
};

// Established timings, from bit 7 down.
constexpr const char* kTimings1[] = {
    "720 x 400 @ 70 Hz (IBM, VGA):       ", "720 x 400 @ 88 Hz (IBM, XGA2):      ",
    "640 x 480 @ 60 Hz (IBM, VGA):       ", "640 x 480 @ 67 Hz (Apple, Mac II):  ",
    "640 x 480 @ 72 Hz (VESA):           ", "640 x 480 @ 75 Hz (VESA):           ",
    "800 x 600 @ 56 Hz (VESA):           ", "800 x 600 @ 60 Hz (VESA):           "};
constexpr const char* kTimings2[] = {
    "800 x 600 @ 72 Hz (VESA):           ", "800 x 600 @ 75 Hz (VESA):           ",
    "832 x 624 @ 75 Hz (Apple, Mac II):  ", "1024 x 768 @ 87 Hz(I) (IBM):        ",
    "1024 x 768 @ 60 Hz (VESA):          ", "1024 x 768 @ 70 Hz (VESA):          ",
    "1024 x 768 @ 75 Hz (VESA):          ", "1280 x 1024 @ 75 Hz (VESA):         "};
constexpr const char* kTimings3[] = {"1152 x 870 @ 75 Hz (Apple, Mac II): "};
// clang-format on

template <std::size_t N>
void appendTimings(std::string& report, const char* title, const unsigned char& byte,
                   const char* const (&timings)[N]) {
    report += title;
    appendBytes(report, kOfField, &byte, 1);
    for (std::size_t i = 0; i < N; ++i)
        appendFormatted(report, "\n      %s%s", timings[i],
                        byte & (0x80 >> i) ? "Supported" : "Not Supported");
}

void appendHeader(std::string& report, const unsigned char* block) {
    appendBytes(report, kOfBlock, block, 8);
    report += hasEdidHeader(block) ? "\n   Normal Header"
                                   : "\n   Invalid Header! Expected: 00 FF FF FF FF FF FF 00";
}

void appendProduct(std::string& report, const unsigned char* block, const EdidIdentity& identity) {
    report += "\n\n   Vendor/Product Identification";
    appendBytes(report, kOfField, block + 8, 2);
    appendFormatted(report, "\n      ID Manufacturer Name (EISA 3-character code) = %s",
                    identity.manufacturer.c_str());
    appendBytes(report, kOfField, block + 10, 2);
    appendFormatted(report, "\n      ID Product Code (hexadecimal)                = %s",
                    identity.product.c_str());
    appendBytes(report, kOfField, block + 12, 4);
    appendFormatted(report, "\n      ID Serial Number (hexadecimal)               = %02X%02X%02X%02X",
                    block[15], block[14], block[13], block[12]);
    appendBytes(report, kOfField, block + 16, 2);
    appendFormatted(report, "\n      Manufactured: Week %d of %d", block[16], block[17] + kFirstYear);
    appendBytes(report, kOfBlock, block + 18, 2);
    appendFormatted(report, "\n   EDID Version %d.%d\n", block[18], block[19]);
}

void appendInput(std::string& report, const unsigned char* block) {
    const unsigned input = block[20];
    report += "\n   Basic Display Parameters / Features";
    appendBytes(report, kOfField, block + 20, 1);
    report += "\n      Video Input Definition:";
    if (input & 0x80) {
        report += "\n         Digital Input";
        appendFlag(report, input, kDigitalInput);
    } else {
        report += "\n      Analog Input";
        report += kAnalogLevels[(input >> 5) & 3];
        appendFlags(report, input, kAnalogInput);
    }
}

float inches(float cm) {
    return static_cast<float>(static_cast<double>(cm) / kCmPerInch);
}

void appendImage(std::string& report, const unsigned char* block) {
    const int width = block[21], height = block[22]; // cm
    appendBytes(report, kOfField, block + 21, 1);
    appendFormatted(report, "\n      Max. Horizontal Image Size = %d.000 cm or %0.3f in", width,
                    inches(static_cast<float>(width)));
    appendBytes(report, kOfField, block + 22, 1);
    appendFormatted(report, "\n      Max. Vertical   Image Size = %d.000 cm or %0.3f in", height,
                    inches(static_cast<float>(height)));
    const auto diagonal = static_cast<float>(std::sqrt(static_cast<double>(width * width + height * height)));
    appendFormatted(report, "\n\n      Max. Diagonal   Image Size = %0.3f cm or %0.3f in (calculated)",
                    diagonal, inches(diagonal));
    appendBytes(report, kOfField, block + 23, 1);
    report += "\n      Display Transfer Characteristic (Gamma) = ";
    if (block[23] == 255) {
        report += "Not Defined Here";
    } else {
        // On purpose: a division of integers, so that this always tells 1.000. The standard's gamma is
        // (byte + 100) / 100.
        appendFormatted(report, "%0.3f", block[23] / 255 * 2.54 + 1.0);
    }
}

void appendFeatures(std::string& report, const unsigned char* block) {
    appendBytes(report, kOfField, block + 24, 1);
    appendFlags(report, block[24], kPowerSaving);
    report += kDisplayTypes[(block[24] >> 3) & 3];
    appendFlags(report, block[24], kFeatures);
}

void appendColors(std::string& report, const unsigned char* block) {
    constexpr const char* kNames[] = {"Red  ", "Green", "Blue ", "White"};
    report += "\n\n   Color Characteristics";
    appendBytes(report, kOfField, block + 25, 10);
    // Eight coordinates x, y: high bits in a byte each, the low two of all of them, from the top, in bytes 25 and 26.
    const unsigned low = 256U * block[25] + block[26];
    const auto coordinate = [&](unsigned i) {
        return static_cast<float>(4U * block[27 + i] + ((low >> (14 - 2 * i)) & 3)) * (1.0F / 1024);
    };
    for (unsigned i = 0; i < 4; ++i)
        appendFormatted(report, "\n      %s = (%0.3f, %0.3f)", kNames[i], coordinate(2 * i),
                        coordinate(2 * i + 1));
}

void appendEstablished(std::string& report, const unsigned char* block) {
    appendTimings(report, "\n\n   Established Timings I", block[35], kTimings1);
    appendTimings(report, "\n\n   Established Timings II", block[36], kTimings2);
    appendTimings(report, "\n\n   Manufacturer's Timings", block[37], kTimings3);
    for (int bit = 6; bit >= 0; --bit)
        appendFormatted(report, "\n      Reserved %d: %d", bit, (block[37] >> bit) & 1);
}

void appendStandard(std::string& report, const unsigned char* block) {
    constexpr struct {
        const char* name;
        float height, width;
    } kAspects[] = {{"16:10", 10, 16}, {"4:3", 3, 4}, {"5:4", 4, 5}, {"16:9", 9, 16}};
    for (int n = 1; n <= 8; ++n) {
        const unsigned char* pair = block + 36 + 2 * n;
        appendFormatted(report, "\n\n   Standard Timing Identification #%d", n);
        appendBytes(report, kOfField, pair, 2);
        if (pair[0] == 1 && pair[1] == 1) {
            report += "\n      Unused";
            continue;
        }
        const auto& aspect = kAspects[pair[1] >> 6];
        const auto horizontal = static_cast<float>((pair[0] + 31) * 8); // pixels
        appendFormatted(report, "\n      %.0f x %.0f @ %.0f Hz (%s)", horizontal,
                        horizontal * aspect.height / aspect.width, static_cast<float>((pair[1] & 0x3F) + 60),
                        aspect.name);
    }
}

void appendEnd(std::string& report, const unsigned char* block) {
    appendBytes(report, kOfBlock, block + 126, 1);
    appendFormatted(report, "\n   Extension Flag: %d extension blocks follow", block[126]);
    appendBytes(report, kOfBlock, block + 127, 1);
    // All 128 bytes add up to 0 modulo 256.
    const unsigned expected = (256U - std::accumulate(block, block + 127, 0U)) & 0xFF;
    if (block[127] == expected)
        report += "\n   Normal Checksum";
    else
        appendFormatted(report, "\n   Invalid Checksum! Expected (hex): %02X", expected);
}

} // namespace

bool hasEdidHeader(const unsigned char* bytes) {
    return std::equal(std::begin(kHeader), std::end(kHeader), bytes);
}

void appendRawEdid(std::string& report, const unsigned char* bytes, unsigned length) {
    for (unsigned i = 0; i < length; ++i) {
        if (i % 16 == 0) report += "\n";
        appendFormatted(report, "  %2.2X", bytes[i]);
    }
}

void appendDecodedEdid(std::string& report, const unsigned char* block, const EdidIdentity& identity) {
    appendHeader(report, block);
    appendProduct(report, block, identity);
    appendInput(report, block);
    appendImage(report, block);
    appendFeatures(report, block);
    appendColors(report, block);
    appendEstablished(report, block);
    appendStandard(report, block);
    for (int n = 1; n <= 4; ++n) {
        const unsigned char* descriptor = block + 36 + 18 * n;
        appendFormatted(report, "\n\n   Detailed Timing Description #%d", n);
        appendBytes(report, kOfField, descriptor, 18);
        appendEdidDescriptor(report, descriptor);
    }
    appendEnd(report, block);
}
