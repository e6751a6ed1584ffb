#include "views/peripherals/Edid.h"

#include "tests/platform/support/LogCapture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <functional>
#include <memory>

namespace {

// The front of a record: manufacturer "BWV" (5 bits a letter), product 0xCA28, digital input.
std::string record() {
    std::string bytes(256, '\0');
    bytes.replace(0, 12, std::string("\x00\xFF\xFF\xFF\xFF\xFF\xFF\x00\x0A\xF6\x28\xCA", 12));
    bytes[20] = '\x80';
    return bytes;
}

/// A block of any length: what populate() takes is a whole record.
struct AnyEdid : Edid {
    explicit AnyEdid(const std::string& bytes) {
        mLength = static_cast<unsigned>(bytes.size());
        mData = std::make_unique<unsigned char[]>(bytes.size());
        std::copy(bytes.begin(), bytes.end(), mData.get());
    }
    unsigned length() const { return mLength; }
};

/// One case of edid_reference.py.
struct Reference {
    std::string name, block, report;
};

class References {
public:
    References()
        : mPipe(::popen("python3 " MIRL_SOURCE_DIR "/tests/views/peripherals/edid_reference.py", "r"),
                ::pclose) {}

    bool next(Reference& to) {
        std::array<char, 80> name;
        std::array<char, 513> digits;
        unsigned length, size;
        if (std::fscanf(mPipe.get(), "%79s %u %u %512[0-9a-f]", name.data(), &length, &size, digits.data()) !=
            4)
            return false;
        to.name = name.data();
        to.block.clear();
        for (unsigned i = 0; i < length; ++i)
            to.block += static_cast<char>(std::stoul(std::string(&digits[2 * i], 2), nullptr, 16));
        to.report.resize(size);
        std::fgetc(mPipe.get()); // newline
        return std::fread(to.report.data(), 1, size, mPipe.get()) == size;
    }

private:
    std::unique_ptr<FILE, int (*)(FILE*)> mPipe;
};

TEST(Edid, ReportsAgreeWithASecondDecoder) {
    References references;
    Reference reference;
    int cases = 0, wrong = 0;
    while (wrong < 5 && references.next(reference)) {
        ++cases;
        AnyEdid edid(reference.block);
        std::string report = "what was there before";
        edid.fullDecodeGet(report);
        if (report == reference.report) continue;
        ++wrong;
        const auto differ =
            std::mismatch(report.begin(), report.end(), reference.report.begin(), reference.report.end());
        const auto context = [](const std::string& text, auto from) {
            const auto at = static_cast<std::size_t>(from - text.begin());
            return text.substr(at < 60 ? 0 : at - 60, 120);
        };
        ADD_FAILURE() << reference.name << "\nsays    ..." << context(report, differ.first) << "\ninstead ..."
                      << context(reference.report, differ.second);
    }
    EXPECT_GT(cases, 5800) << "the second decoder told too little";
}

TEST(Edid, ItsOwnReportCutsItToTheBaseBlock) {
    AnyEdid edid(record());
    std::string first, second;
    edid.fullDecodeGet(first);
    EXPECT_EQ(edid.length(), 128u);
    EXPECT_TRUE(edid.isValid());
    edid.fullDecodeGet(second);
    EXPECT_EQ(first, second);
    Edid empty;
    empty.fullDecodeGet(first);
    EXPECT_EQ(first,
              "Raw data (hexadecimal):\n\n\nEDID data block is too short. Expected at least 128 bytes. "
              "Not decoding.");
}

TEST(Edid, EveryByteOfAMonitorsTextIsShownSafely) {
    for (int byte = 0; byte < 256; ++byte) {
        std::string bytes = record();
        bytes.replace(54, 18, std::string("\0\0\0\xFC\0", 5) + std::string(13, static_cast<char>(byte)));
        AnyEdid edid(bytes);
        std::string report;
        edid.fullDecodeGet(report);
        const bool shown = byte == '\n' || (byte >= 0x20 && byte <= 0x7E);
        std::string text;
        for (int i = 0; i < 13; ++i) text += shown ? std::string(1, static_cast<char>(byte)) : "\xEF\xBF\xBD";
        const std::string legible = Edid::legible(report);
        EXPECT_NE(legible.find("Monitor Name: " + text + "\n"), std::string::npos) << byte;
    }
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

TEST(Edid, NineBytesAreEnoughToJudge) {
    for (const std::size_t length : {0u, 8u, 9u, 100u, 127u, 128u}) {
        LogCapture log;
        EXPECT_EQ(AnyEdid(record().substr(0, length)).isValid(), length >= 9);
        std::vector<std::string> complaints;
        if (length < 9) complaints.push_back("EDID data length too short (" + std::to_string(length) + ").");
        EXPECT_EQ(log.messages(4), complaints);
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
