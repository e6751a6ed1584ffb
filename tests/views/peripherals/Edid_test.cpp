#include "views/peripherals/Edid.h"

#include "tests/platform/support/LogCapture.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// The front of a record: manufacturer "BWV" (5 bits a letter), product 0xCA28, digital input.
std::string record() {
    std::string bytes(256, '\0');
    bytes.replace(0, 12, std::string("\x00\xFF\xFF\xFF\xFF\xFF\xFF\x00\x0A\xF6\x28\xCA", 12));
    bytes[20] = '\x80';
    return bytes;
}

TEST(Edid, ValuesOfAValidBlock) {
    std::string bytes = record();
    Edid edid;
    edid.populate(bytes.data(), 256);
    std::string text;
    edid.manufacturerIdGet(text);
    EXPECT_EQ(text, "BWV");
    edid.productCodeGet(text);
    EXPECT_EQ(text, "CA28");
    EXPECT_TRUE(edid.isDigital());
    EXPECT_TRUE(edid.isValid());
    bytes[20] = '\x7F';
    bytes.replace(10, 2, std::string("\x07\x00", 2));
    edid.populate(bytes.data(), 256);
    EXPECT_FALSE(edid.isDigital());
    edid.productCodeGet(text);
    EXPECT_EQ(text, "0007");
}

TEST(Edid, WhatIsWrongIsLogged) {
    const struct {
        const char* name;
        std::function<void(std::string&)> spoil;
        const char* complaint; // 0 = valid
    } rows[] = {
        {"as it is", [](auto&) {}, nullptr},
        {"first byte", [](auto& b) { b[0] = '\x01'; }, "Bad EDID header pattern (1 FF FF FF FF FF FF 0)."},
        {"last of the header", [](auto& b) { b[7] = '\x02'; },
         "Bad EDID header pattern (0 FF FF FF FF FF FF 2)."},
        {"reserved bit", [](auto& b) { b[8] = '\x80'; }, "Bad EDID manufacturer ID (80)."},
        {"highest manufacturer", [](auto& b) { b[8] = '\x7F'; }, nullptr},
        {"checksum", [](auto& b) { b[127] = '\x55'; }, nullptr},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.name);
        LogCapture log;
        std::string bytes = record();
        r.spoil(bytes);
        Edid edid;
        edid.populate(bytes.data(), 256);
        EXPECT_EQ(edid.isValid(), r.complaint == nullptr);
        EXPECT_EQ(log.messages(4),
                  r.complaint ? std::vector<std::string>{r.complaint} : std::vector<std::string>{});
    }
}

TEST(Edid, OnlyAWholeRecordIsTaken) {
    LogCapture log;
    const std::string bytes = record();
    Edid edid;
    edid.populate(bytes.data(), 128);
    EXPECT_FALSE(edid.isValid());
    EXPECT_EQ(log.messages(4),
              (std::vector<std::string>{"Unexpected EDID data length (128).", "No EDID data."}));
    edid.populate(bytes.data(), 256);
    edid.populate(bytes.data(), 255);
    EXPECT_TRUE(edid.isValid()) << "a refused block leaves the old one";
}

} // namespace
