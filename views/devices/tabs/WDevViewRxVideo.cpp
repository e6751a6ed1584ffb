#include "views/devices/tabs/WDevViewRxVideo.h"

#include "db/Convert.h"
#include "db/DeviceState.h"
#include "db/ZeqExchange.h"
#include "platform/client/ZeqReq.h"
#include "widgets/ValueTexts.h"
#include "widgets/WUInt32Zeq.h"
#include "widgets/WVideoResolution.h"

#include <Wt/WTableCell>

namespace {

constexpr int kValueWidth = 200;      // pixels
constexpr double kKiloToMega = 0.001; // the clock is stored in kHz and shown in MHz
constexpr const char* kValueCell = "mirl-multi-col-attribute-table-read-only-cell";

enum class Kind { Group, Resolution, Number, Clock, Computed, Polarity };

struct VideoRow {
    const char* label;
    Kind kind;
    const char* key = "";
};

enum Row {
    kGeneral,
    kResolution,
    kClock,
    kHorizontal,
    kFrequency,
    kHSync,
    kHFrontPorch,
    kHSyncWidth,
    kHBackPorch,
    kVertical,
    kFrameRate,
    kVSync,
    kVFrontPorch,
    kVSyncWidth,
    kVBackPorch,
    kRowCount
};

constexpr VideoRow kRows[] = {
    {"[RSnnn]General", Kind::Group},
    {"[RSnnn]Resolution (pixels)", Kind::Resolution},
    {"[RSnnn]Pixel Clock (MHz)", Kind::Clock, "pixelClockFrequency"},
    {"[RSnnn]Horizontal", Kind::Group},
    {"[RSnnn]Frequency (kHz)", Kind::Computed},
    {"[RSnnn]Sync Polarity", Kind::Polarity, "horizontalSyncPolarity"},
    {"[RSnnn]Front Porch (pixels)", Kind::Number, "horizontalFrontPorch"},
    {"[RSnnn]Sync Width (pixels)", Kind::Number, "horizontalSyncWidth"},
    {"[RSnnn]Back Porch (pixels)", Kind::Number, "horizontalBackPorch"},
    {"[RSnnn]Vertical", Kind::Group},
    {"[RSnnn]Frame Rate (Hz)", Kind::Computed},
    {"[RSnnn]Sync Polarity", Kind::Polarity, "verticalSyncPolarity"},
    {"[RSnnn]Front Porch (lines)", Kind::Number, "verticalFrontPorch"},
    {"[RSnnn]Sync Width (lines)", Kind::Number, "verticalSyncWidth"},
    {"[RSnnn]Back Porch (lines)", Kind::Number, "verticalBackPorch"},
};
static_assert(std::size(kRows) == kRowCount);

constexpr const char* kHeadings[] = {"[RSnnn]Transmitter Input", "[RSnnn]Receiver Output",
                                     "[RSnnn]Monitor Preferred"};

constexpr const char* kObjects[] = {"inputVideoTiming", "outputVideoTiming", "monPrefVideoTiming"};

unsigned shownNumber(const Wt::WText* text) {
    unsigned value = 0;
    Convert_stringToUInt32(text->text().toUTF8(), value);
    return value;
}

void showUnlessZero(WUInt32Zeq* text, unsigned value) {
    if (value == 0)
        text->setText("");
    else
        text->setValue(value);
}

} // namespace

WDevViewRxVideoTable::WDevViewRxVideoTable(Wt::WContainerWidget* parent) : Wt::WTable(parent) {
    setHeaderCount(1);
    elementAt(0, 0)->setStyleClass("mirl-attribute-table-heading");
    for (int row = 0; row < kRowCount; ++row) {
        auto* label = new Wt::WText(tr(kRows[row].label), elementAt(row + 1, 0));
        label->setStyleClass(kRows[row].kind == Kind::Group ? "mirl-attribute-table-group-label"
                                                            : "mirl-attribute-table-label");
    }
    for (int place = 0; place < kColumnCount; ++place) {
        mColumns[static_cast<std::size_t>(place)].object = kObjects[place];
        elementAt(0, place + 1)->setStyleClass("mirl-attribute-table-heading");
        new Wt::WText(tr(kHeadings[place]), elementAt(0, place + 1));
        addRows(mColumns[static_cast<std::size_t>(place)], place + 1);
    }
}

void WDevViewRxVideoTable::addRows(Column& column, int place) {
    for (int row = 0; row < kRowCount; ++row) {
        const VideoRow& spec = kRows[row];
        if (spec.kind == Kind::Group) continue;
        Wt::WTableCell* cell = elementAt(row + 1, place);
        cell->setStyleClass(kValueCell);
        Wt::WText* text = nullptr;
        WWidgetZeq* bound = nullptr;
        if (spec.kind == Kind::Resolution) {
            column.resolution =
                new WVideoResolution("rx", "horizontalResolution", "verticalResolution", true, cell);
            text = column.resolution;
            bound = column.resolution;
        } else if (spec.kind == Kind::Polarity) {
            auto* polarity = new WVideoSyncPolarity("rx", spec.key, true, cell);
            text = polarity;
            bound = polarity;
        } else {
            auto* number = new WUInt32Zeq("rx", spec.key, true, cell);
            if (spec.kind == Kind::Clock) number->setDisplayScaling(kKiloToMega);
            column.numbers[static_cast<std::size_t>(row)] = number;
            text = number;
            bound = number;
        }
        text->setInline(false); // or its width counts for nothing
        text->setWidth(kValueWidth);
        column.texts.push_back(text);
        if (spec.kind != Kind::Computed) column.bound.push_back(bound);
    }
}

void WDevViewRxVideoTable::clearValues() {
    for (const Column& column : mColumns) {
        for (Wt::WText* text : column.texts) text->setText("");
    }
}

void WDevViewRxVideoTable::readFromDatabase(const std::vector<unsigned>& indexes, bool /*force*/) {
    if (indexes.size() == 1) {
        const auto state = readRxState(indexes[0]);
        if (!state || !state->ready()) return;
    }
    if (indexes.empty()) return;
    ZeqExchange exchange(ZeqReqUtil_newGetResource, "rx", __func__);
    if (!exchange.ready()) return;
    for (const unsigned index : indexes) ZeqReqUtil_setIntegerQuery(exchange.request(), "index", index);
    ZeqReqUtil_setSelect(exchange.request(), "index");
    for (const Column& column : mColumns) ZeqReqUtil_setSelect(exchange.request(), column.object);
    exchange.sendQuietly();
    if (!exchange.response()) {
        clearValues();
        return;
    }
    for (Column& column : mColumns) {
        const ZeqPtr timings(ZeqObj_collapse(exchange.response(), "index", column.object));
        if (!timings) {
            clearValues();
            return;
        }
        fill(column, timings.get(), indexes);
    }
}

void WDevViewRxVideoTable::fill(Column& column, const json_t* timings, const std::vector<unsigned>& indexes) {
    for (WWidgetZeq* bound : column.bound) bound->getZeqParam(timings, indexes, true);
    computeFrequencies(column);
}

void WDevViewRxVideoTable::computeFrequencies(Column& column) {
    const auto& numbers = column.numbers;
    const unsigned clock = numbers[kClock]->getValue();
    const unsigned hRes = column.resolution->horizontalResolution();
    const unsigned vRes = column.resolution->verticalResolution();
    const unsigned hFront = shownNumber(numbers[kHFrontPorch]);
    const unsigned hSync = shownNumber(numbers[kHSyncWidth]);
    const unsigned hBack = shownNumber(numbers[kHBackPorch]);
    showUnlessZero(numbers[kFrequency], Convert_videoTimingToHorFreq(clock, hRes, hFront, hSync, hBack));
    showUnlessZero(numbers[kFrameRate],
                   Convert_videoTimingToFrameRate(
                       clock, hRes, hFront, hSync, hBack, vRes, shownNumber(numbers[kVFrontPorch]),
                       shownNumber(numbers[kVSyncWidth]), shownNumber(numbers[kVBackPorch])));
}
