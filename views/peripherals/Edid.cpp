#include "views/peripherals/Edid.h"

#include "platform/client/EventLog.h"
#include "views/peripherals/EdidReport.h"

#include <cstdio>
#include <cstring>

namespace {

constexpr unsigned kRecordSize = 256;
// Header and the first byte of the manufacturer ID.
constexpr unsigned kLeastToJudge = 9;

} // namespace

void Edid::populate(const char* bytes, unsigned size) {
    if (size != kRecordSize) {
        EventLog_write(4, 7, __func__, "Unexpected EDID data length (%u).", size);
        return;
    }
    mData = std::make_unique<unsigned char[]>(size);
    std::memcpy(mData.get(), bytes, size);
    mLength = size;
}

bool Edid::isValid() const {
    if (!mData) {
        EventLog_write(4, 7, __func__, "No EDID data.");
        return false;
    }
    if (mLength < kLeastToJudge) {
        EventLog_write(4, 7, __func__, "EDID data length too short (%u).", mLength);
        return false;
    }
    const unsigned char* d = mData.get();
    if (!hasEdidHeader(d)) {
        EventLog_write(4, 7, __func__, "Bad EDID header pattern (%X %X %X %X %X %X %X %X).", d[0], d[1], d[2],
                       d[3], d[4], d[5], d[6], d[7]);
        return false;
    }
    if (d[8] >= 128) {
        EventLog_write(4, 7, __func__, "Bad EDID manufacturer ID (%X).", d[8]);
        return false;
    }
    return true;
}

bool Edid::isDigital() const {
    return (mData[20] & 0x80) != 0;
}

void Edid::manufacturerIdGet(std::string& id) const {
    const int high = mData[8];
    const int low = mData[9];
    id = {static_cast<char>(((high & 0x7C) >> 2) + 64),
          static_cast<char>(((low >> 5) | ((high & 3) * 8)) + 64), static_cast<char>((low & 31) + 64)};
}

void Edid::productCodeGet(std::string& code) const {
    char text[8];
    std::snprintf(text, sizeof text, "%04X", mData[10] + 256U * mData[11]);
    code = text;
}

void Edid::fullDecodeGet(std::string& report) {
    report = "Raw data (hexadecimal):\n";
    // On purpose: the object itself is cut, and the second block is never shown.
    if (mLength > kEdidBaseBlock) mLength = kEdidBaseBlock;
    appendRawEdid(report, mData.get(), mLength);
    if (mLength < kEdidBaseBlock) {
        report += "\n\nEDID data block is too short. Expected at least 128 bytes. Not decoding.";
        return;
    }
    report += "\n\nDecoded data -- corresponding raw data shown as hexadecimal in []:";
    std::string manufacturer, product;
    manufacturerIdGet(manufacturer);
    productCodeGet(product);
    appendDecodedEdid(report, mData.get(), {manufacturer, product});
}

std::string Edid::legible(const std::string& report) {
    std::string text;
    for (const char c : report) {
        if (c == '\n' || (c >= ' ' && c <= '~'))
            text += c;
        else
            text += "\uFFFD";
    }
    return text;
}
