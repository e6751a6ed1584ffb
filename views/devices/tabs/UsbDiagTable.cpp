#include "views/devices/tabs/UsbDiagTable.h"

#include <cstdio>

std::string usbDiagText(UsbFormat format, unsigned value) {
    char text[30];
    switch (format) {
    case UsbFormat::Version:
        std::snprintf(text, sizeof text, "%d.%d", int(value >> 8 & 0xFF), int(value & 0xFF));
        break;
    case UsbFormat::Hex2:
        std::snprintf(text, sizeof text, "0x%02X", value);
        break;
    case UsbFormat::Hex4:
        std::snprintf(text, sizeof text, "0x%04X", value);
        break;
    case UsbFormat::Hex8:
        std::snprintf(text, sizeof text, "0x%08X", value);
        break;
    }
    return text;
}

UsbDiagTable::Indexes UsbDiagTable::recordsOf(unsigned /*group*/, const Indexes& chosen) {
    const unsigned record = chosen.size() == 1 ? mFind(chosen.front()) : 0;
    return record != 0 ? Indexes{record} : Indexes{};
}
