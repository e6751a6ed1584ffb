#include "platform/service/domain/Video.h"

#include "platform/service/catalogue/Catalogue.h"
#include "platform/service/catalogue/DeviceRows.h"

#include <array>
#include <iterator>

namespace zeqd {

namespace {

/// Timings of the VESA monitor timing standard and of CEA-861, in the order of the keys of a timing object:
/// width, height, clock in kHz, horizontal polarity (1 = positive), front porch, sync,
/// back porch, then vertical.
constexpr std::int64_t kModes[][11] = {
    {1920, 1080, 148500, 1, 88, 44, 148, 1, 4, 5, 36},  {1280, 1024, 108000, 1, 48, 112, 248, 1, 1, 3, 38},
    {1600, 1200, 162000, 1, 64, 192, 304, 1, 1, 3, 46}, {1920, 1200, 154000, 1, 48, 32, 80, 0, 3, 6, 26},
    {1024, 768, 65000, 0, 24, 136, 160, 0, 3, 6, 29},   {1280, 720, 74250, 1, 110, 40, 220, 1, 5, 5, 20},
    {1680, 1050, 119000, 1, 48, 32, 80, 0, 3, 6, 21},   {1440, 900, 88750, 1, 48, 32, 80, 0, 3, 6, 17},
    {800, 600, 40000, 1, 40, 128, 88, 1, 1, 4, 23},     {640, 480, 25175, 0, 16, 96, 48, 0, 10, 2, 33},
};
constexpr std::size_t kKeys = 11;
static_assert(std::size(rows::kVideoTiming) == kKeys);

FieldsPtr timing(const std::int64_t (&numbers)[kKeys]) {
    return std::make_shared<const Fields>(numbers, numbers + kKeys);
}

FieldsPtr dark() {
    return defaultFields(rows::kVideoTiming);
}

/// First detailed timing of an EDID block (VESA E-EDID 1.4, section 3.10.2), or dark.
FieldsPtr preferred(const std::string& edid) {
    if (edid.size() < 128) return dark();
    const auto byte = [&edid](std::size_t i) {
        return static_cast<std::int64_t>(static_cast<unsigned char>(edid[54 + i]));
    };
    const std::int64_t clock = (byte(0) | byte(1) << 8) * 10;
    if (clock == 0) return dark();
    const std::int64_t width = byte(2) | (byte(4) & 0xF0) << 4;
    const std::int64_t widthBlank = byte(3) | (byte(4) & 0x0F) << 8;
    const std::int64_t height = byte(5) | (byte(7) & 0xF0) << 4;
    const std::int64_t heightBlank = byte(6) | (byte(7) & 0x0F) << 8;
    const std::int64_t front = byte(8) | (byte(11) & 0xC0) << 2;
    const std::int64_t sync = byte(9) | (byte(11) & 0x30) << 4;
    const std::int64_t frontV = byte(10) >> 4 | (byte(11) & 0x0C) << 2;
    const std::int64_t syncV = (byte(10) & 0x0F) | (byte(11) & 0x03) << 4;
    const std::int64_t numbers[kKeys] = {width,
                                         height,
                                         clock,
                                         byte(17) >> 1 & 1,
                                         front,
                                         sync,
                                         widthBlank - front - sync,
                                         byte(17) >> 2 & 1,
                                         frontV,
                                         syncV,
                                         heightBlank - frontV - syncV};
    return timing(numbers);
}

} // namespace

std::uint32_t videoModeCount() {
    return std::size(kModes);
}

void setPictures(Record& rx, const RecordPtr& tx) {
    const FieldsPtr wanted = preferred(rx.text("simMonitor"));
    const std::uint32_t mode = tx ? tx->number("simVideoMode") : 0;
    const bool shown = mode >= 1 && mode <= videoModeCount();
    const FieldsPtr in = shown ? timing(kModes[mode - 1]) : dark();
    rx.at("inputVideoTiming") = in;
    rx.at("outputVideoTiming") = shown && rx.enabled("videoScaling") && wanted != dark() ? wanted : in;
    rx.at("monPrefVideoTiming") = wanted;
}

} // namespace zeqd
