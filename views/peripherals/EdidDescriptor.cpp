#include "views/peripherals/EdidReport.h"
#include "views/peripherals/EdidText.h"

namespace {

void appendMonitorText(std::string& report, const char* title, const unsigned char* d) {
    report += title;
    report.append(reinterpret_cast<const char*>(d + 5), 13); // with the monitor's own padding
    report += "\n";
}

void appendRangeLimits(std::string& report, const unsigned char* d) {
    // The clock counts tens of MHz: its last digit is part of the unit.
    constexpr struct {
        const char *name, *unit;
    } kLimits[] = {{"Min. Vertical   rate", " Hz"},
                   {"Max. Vertical   rate", " Hz"},
                   {"Min. Horizontal rate", " kHz"},
                   {"Max. Horizontal rate", " kHz"},
                   {"Max. Supported Pixel Clock", "0 MHz"}};
    report += "\n         Monitor Range Limits";
    const unsigned char* value = d + 5;
    for (const auto& limit : kLimits)
        appendFormatted(report, "\n            %s: %d%s", limit.name, *value++, limit.unit);
}

void appendMonitorDescriptor(std::string& report, const unsigned char* d) {
    report += "\n      Monitor Descriptor Block";
    switch (const unsigned tag = d[3]) {
    case 255:
        return appendMonitorText(report, "\n         Monitor Serial Number: ", d);
    case 254:
        return appendMonitorText(report, "\n         ASCII String\n             ", d);
    case 253:
        return appendRangeLimits(report, d);
    case 252:
        return appendMonitorText(report, "\n         Monitor Name: ", d);
    case 251:
        report += "\n         Color Point Data";
        break;
    case 250:
        report += "\n         Standard Timing Identifications";
        break;
    case 16:
        report += "\n         Dummy Descriptor";
        break;
    default:
        report += tag > 16 ? "\n         Currently Undefined" : "\n         Defined by Manufacturer";
    }
}

void appendSync(std::string& report, unsigned flags) {
    constexpr EdidFlag kSerrate = {2, "\n      Don't Serrate", "\n      Serrate"};
    constexpr EdidFlag kSyncOn = {1, "\n      Sync-on-RGB", "\n      Sync-on-Green"};
    constexpr struct {
        const char* name;
        EdidFlag bit2, bit1;
    } kSyncs[] = {
        {"\n      Analog composite", kSerrate, kSyncOn},
        {"\n      Bipolar analog composite", kSerrate, kSyncOn},
        {"\n      Digital composite",
         kSerrate,
         {1, "\n      Composite Polarity: Positive", "\n      Composite Polarity: Negative"}},
        {"\n      Digital separate",
         {2, "\n      Vertical  Polarity: Positive", "\n      Vertical  Polarity: Negative"},
         {1, "\n      Horizontal Polarity: Positive", "\n      Horizontal Polarity: Negative"}},
    };
    const auto& sync = kSyncs[(flags >> 3) & 3];
    report += sync.name;
    appendFlag(report, flags, sync.bit2);
    appendFlag(report, flags, sync.bit1);
}

void appendTiming(std::string& report, const unsigned char* d) {
    // High bits of several numbers share a byte.
    const struct {
        const char *name, *unit;
        int value;
    } numbers[] = {
        {"Horizontal Active", "pixels", ((d[4] << 4) & 0xF00) + d[2]},
        {"Horizontal Blanking", "pixels", ((d[4] << 8) & 0xF00) + d[3]},
        {"Vertical   Active", "pixels", ((d[7] << 4) & 0xF00) + d[5]},
        {"Vertical   Blanking", "pixels", ((d[7] << 8) & 0xF00) + d[6]},
        {"Horizontal Sync Offset", "pixels", ((d[11] << 2) & 0x300) + d[8]},
        {"Horizontal Sync Pulse Width", "pixels", ((d[11] << 4) & 0x300) + d[9]},
        {"Vertical   Sync Offset", "pixels", ((d[11] << 2) & 0x30) + (d[10] >> 4)},
        {"Vertical   Sync Pulse Width", "pixels", ((d[11] << 4) & 0x30) + (d[10] & 15)},
        {"Horizontal Image Size", "mm", ((d[14] << 4) & 0xF00) + d[12]},
        {"Vertical   Image Size", "mm", ((d[14] << 8) & 0xF00) + d[13]},
    };
    // The clock counts 10 kHz.
    appendFormatted(report, "\n      Pixel Clock: %.3f MHz", static_cast<float>(d[0] + 256 * d[1]) / 100);
    for (const auto& number : numbers)
        appendFormatted(report, "\n      %s: %.0f %s", number.name, static_cast<float>(number.value),
                        number.unit);
    appendFormatted(report, "\n      Horizontal Border: %d", d[15]);
    appendFormatted(report, "\n      Vertical   Border: %d", d[16]);
    // On purpose: the same words whether bit 7, interlaced, is set or clear.
    report += "\n      Non-Interlaced";
    report += d[17] & 0x60 ? "\n      Stereoscopic display" : "\n      Normal display, no stereo";
    appendSync(report, d[17]);
}

} // namespace

void appendEdidDescriptor(std::string& report, const unsigned char* descriptor) {
    if (descriptor[0] == 0 && descriptor[1] == 0)
        appendMonitorDescriptor(report, descriptor);
    else
        appendTiming(report, descriptor);
}
