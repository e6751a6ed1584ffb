#include "views/devices/tabs/UsbDiagTable.h"

#include <gtest/gtest.h>

TEST(UsbDiag, Texts) {
    const struct {
        UsbFormat format;
        unsigned value;
        const char* text;
    } rows[] = {
        {UsbFormat::Version, 0x0102, "1.2"},
        {UsbFormat::Version, 0xABCD0A10, "10.16"},
        {UsbFormat::Hex2, 0x7, "0x07"},
        {UsbFormat::Hex2, 0x123, "0x123"},
        {UsbFormat::Hex4, 0xBEEF, "0xBEEF"},
        {UsbFormat::Hex8, 0, "0x00000000"},
        {UsbFormat::Hex8, 0xFFFFFFFF, "0xFFFFFFFF"},
    };
    for (const auto& row : rows) EXPECT_EQ(usbDiagText(row.format, row.value), row.text);
}
