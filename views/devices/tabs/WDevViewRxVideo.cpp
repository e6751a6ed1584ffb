#include "views/devices/tabs/WDevViewRxVideo.h"

#include "db/Convert.h"
#include "db/DeviceState.h"
#include "db/HeldRecords.h"
#include "widgets/ValueTexts.h"
#include "widgets/WUInt32Zeq.h"
#include "widgets/WVideoResolution.h"

#include <array>

namespace {

constexpr double kKiloToMega = 0.001; // the clock is stored in kHz and shown in MHz

// Each value column is a timing object of the Receiver's record.
constexpr const char* kTimings[] = {"rx/inputVideoTiming", "rx/outputVideoTiming", "rx/monPrefVideoTiming"};

constexpr SettingsTableSpec kSpec{
    .resource = "rx",
    .headings = {"", "[RSnnn]Transmitter Input", "[RSnnn]Receiver Output", "[RSnnn]Monitor Preferred"},
    .width = 200,
    .cellStyle = "mirl-multi-col-attribute-table-read-only-cell",
    .columns = kTimings};

template <class Text>
SettingsField shown(Text* text) {
    text->setInline(false); // or its width counts for nothing
    SettingsField field;
    field.widget = text;
    field.bound = text;
    return field;
}

template <class Text>
SettingsField makeShown(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* cell) {
    return shown(new Text(resource, key, indexed, cell));
}

SettingsField makeClock(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* cell) {
    auto* clock = new WUInt32Zeq(resource, key, indexed, cell);
    clock->setDisplayScaling(kKiloToMega);
    return shown(clock);
}

SettingsField makeResolution(const char* resource, const char* key, bool indexed,
                             Wt::WContainerWidget* cell) {
    return shown(new WVideoResolution(resource, key, "verticalResolution", indexed, cell));
}

constexpr SettingsFieldMaker kNumber = makeShown<WUInt32Zeq>;
constexpr SettingsFieldMaker kPolarity = makeShown<WVideoSyncPolarity>;

constexpr const char* kResolution = "horizontalResolution";
constexpr const char* kClock = "pixelClockFrequency";
constexpr const char* kFrequency = "frequency"; // these two are computed
constexpr const char* kFrameRate = "frameRate";

constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]General"},
    {.label = "[RSnnn]Resolution (pixels)", .make = makeResolution, .key = kResolution},
    {.label = "[RSnnn]Pixel Clock (MHz)", .make = makeClock, .key = kClock},
    {.label = "[RSnnn]Horizontal"},
    {.label = "[RSnnn]Frequency (kHz)", .make = kNumber, .key = kFrequency, .byOwner = true},
    {.label = "[RSnnn]Sync Polarity", .make = kPolarity, .key = "horizontalSyncPolarity"},
    {.label = "[RSnnn]Front Porch (pixels)", .make = kNumber, .key = "horizontalFrontPorch"},
    {.label = "[RSnnn]Sync Width (pixels)", .make = kNumber, .key = "horizontalSyncWidth"},
    {.label = "[RSnnn]Back Porch (pixels)", .make = kNumber, .key = "horizontalBackPorch"},
    {.label = "[RSnnn]Vertical"},
    {.label = "[RSnnn]Frame Rate (Hz)", .make = kNumber, .key = kFrameRate, .byOwner = true},
    {.label = "[RSnnn]Sync Polarity", .make = kPolarity, .key = "verticalSyncPolarity"},
    {.label = "[RSnnn]Front Porch (lines)", .make = kNumber, .key = "verticalFrontPorch"},
    {.label = "[RSnnn]Sync Width (lines)", .make = kNumber, .key = "verticalSyncWidth"},
    {.label = "[RSnnn]Back Porch (lines)", .make = kNumber, .key = "verticalBackPorch"},
};

constexpr const char* kHorizontal[] = {"horizontalFrontPorch", "horizontalSyncWidth", "horizontalBackPorch"};
constexpr const char* kVertical[] = {"verticalFrontPorch", "verticalSyncWidth", "verticalBackPorch"};

bool isReady(unsigned rxIndex) {
    const auto state = readRxState(rxIndex);
    return state && state->ready();
}

void showUnlessZero(WUInt32Zeq* text, unsigned value) {
    if (value == 0)
        text->setText("");
    else
        text->setValue(value);
}

} // namespace

WDevViewRxVideoTable::WDevViewRxVideoTable(Wt::WContainerWidget* parent)
    : WSettingsTable(kSpec, kRows, parent) {}

void WDevViewRxVideoTable::readFromDatabase(const Indexes& indexes, bool force) {
    HeldRecords own;
    const HeldRecords::Use use(own);
    if (indexes.size() == 1 && !isReady(indexes.front())) return;
    WSettingsTable::readFromDatabase(indexes, force);
    for (std::size_t column = 0; column < std::size(kTimings); ++column) computeFrequencies(column);
}

void WDevViewRxVideoTable::computeFrequencies(std::size_t column) {
    std::array<unsigned, 3> horizontal{};
    std::array<unsigned, 3> vertical{};
    bool known = true;
    const auto take = [&](const char* key) {
        const auto* number = widget<WUInt32Zeq>(key, column);
        known = known && !number->text().empty();
        return number->getValue();
    };
    const auto* resolution = widget<WVideoResolution>(kResolution, column);
    known = !resolution->text().empty();
    const unsigned clock = take(kClock);
    for (std::size_t i = 0; i < horizontal.size(); ++i) horizontal[i] = take(kHorizontal[i]);
    const unsigned hRes = resolution->horizontalResolution();
    const auto [hFront, hSync, hBack] = horizontal;
    const unsigned frequency = Convert_videoTimingToHorFreq(clock, hRes, hFront, hSync, hBack);
    showUnlessZero(widget<WUInt32Zeq>(kFrequency, column), known ? frequency : 0);

    for (std::size_t i = 0; i < vertical.size(); ++i) vertical[i] = take(kVertical[i]);
    const auto [vFront, vSync, vBack] = vertical;
    const unsigned rate = Convert_videoTimingToFrameRate(
        clock, hRes, hFront, hSync, hBack, resolution->verticalResolution(), vFront, vSync, vBack);
    showUnlessZero(widget<WUInt32Zeq>(kFrameRate, column), known ? rate : 0);
}
