#include <Wt/WGridLayout.h>

#include "layout/Divider.h"
#include "layout/ItemStyle.h"
#include "layout/LayoutBox.h"
#include "web/ElementSpec.h"

#include <Wt/WContainerWidget.h>
#include <Wt/WWidgetItem.h>

#include <algorithm>

namespace Wt {

struct WGridLayout::Place {
    std::unique_ptr<WLayoutItem> item;
    WFlags<AlignmentFlag> alignment;
    int row = 0, column = 0, rowSpan = 1, columnSpan = 1;
};

struct WGridLayout::Line {
    int stretch = 0;
    bool resizable = false;
    WLength size; // given or dragged; of a line whose items have no size of their own
    std::unique_ptr<Impl::Divider> divider;
};

namespace {

std::string span(int first, int lines) {
    return std::to_string(first + 1) + " / span " + std::to_string(lines);
}

} // namespace

WGridLayout::WGridLayout(WWidget* parent) : WLayout(nullptr) {
    if (auto* container = dynamic_cast<WContainerWidget*>(parent)) container->setLayout(this);
}

WGridLayout::~WGridLayout() = default;

void WGridLayout::grow(int rows, int columns) {
    if (rows > rowCount()) mRows.resize(static_cast<std::size_t>(rows));
    if (columns > columnCount()) mColumns.resize(static_cast<std::size_t>(columns));
}

void WGridLayout::insert(WLayoutItem* item, int row, int column, int rowSpan, int columnSpan,
                         WFlags<AlignmentFlag> alignment) {
    rowSpan = std::max(rowSpan, 1);
    columnSpan = std::max(columnSpan, 1);
    grow(row + rowSpan, column + columnSpan);
    auto place = std::make_unique<Place>();
    place->item.reset(item);
    place->alignment = alignment;
    place->row = row;
    place->column = column;
    place->rowSpan = rowSpan;
    place->columnSpan = columnSpan;
    mPlaces.push_back(std::move(place));
    itemAdded(item);
}

void WGridLayout::addItem(WLayoutItem* item) {
    insert(item, 0, 0, 1, 1, WFlags<AlignmentFlag>());
}

void WGridLayout::addWidget(WWidget* widget, int row, int column, WFlags<AlignmentFlag> alignment) {
    insert(new WWidgetItem(widget), row, column, 1, 1, alignment);
}

void WGridLayout::addWidget(WWidget* widget, int row, int column, int rowSpan, int columnSpan,
                            WFlags<AlignmentFlag> alignment) {
    insert(new WWidgetItem(widget), row, column, rowSpan, columnSpan, alignment);
}

void WGridLayout::addLayout(WLayout* layout, int row, int column, WFlags<AlignmentFlag> alignment) {
    insert(layout, row, column, 1, 1, alignment);
}

void WGridLayout::addLayout(WLayout* layout, int row, int column, int rowSpan, int columnSpan,
                            WFlags<AlignmentFlag> alignment) {
    insert(layout, row, column, rowSpan, columnSpan, alignment);
}

void WGridLayout::removeItem(WLayoutItem* item) {
    const auto found =
        std::find_if(mPlaces.begin(), mPlaces.end(), [&](auto& place) { return place->item.get() == item; });
    if (found == mPlaces.end()) return;
    static_cast<void>((*found)->item.release());
    mPlaces.erase(found);
    itemRemoved(item);
}

void WGridLayout::clear() {
    while (!mPlaces.empty()) {
        WLayoutItem* item = mPlaces.back()->item.get();
        WWidget* widget = item->widget();
        if (item->layout()) item->layout()->clear();
        if (widget) delete widget; // takes its item along if it is in a container
        if (!mPlaces.empty() && mPlaces.back()->item.get() == item) mPlaces.pop_back();
    }
    mRows.clear();
    mColumns.clear();
    changed();
}

void WGridLayout::setHorizontalSpacing(int size) {
    mHorizontalSpacing = size;
    changed();
}

void WGridLayout::setVerticalSpacing(int size) {
    mVerticalSpacing = size;
    changed();
}

void WGridLayout::setColumnStretch(int column, int stretch) {
    grow(0, column + 1);
    mColumns[static_cast<std::size_t>(column)].stretch = stretch;
    changed();
}

void WGridLayout::setRowStretch(int row, int stretch) {
    grow(row + 1, 0);
    mRows[static_cast<std::size_t>(row)].stretch = stretch;
    changed();
}

void WGridLayout::setLineResizable(bool horizontal, int index, bool enabled, const WLength& size) {
    Line& line = (horizontal ? mColumns : mRows)[static_cast<std::size_t>(index)];
    line.resizable = enabled;
    if (!enabled) line.divider.reset();
    if (enabled && !size.isAuto()) resizeLine(horizontal, index, size);
    adoptExtras();
    changed();
}

void WGridLayout::setColumnResizable(int column, bool enabled, const WLength& initialSize) {
    grow(0, column + 1);
    setLineResizable(true, column, enabled, initialSize);
}

void WGridLayout::setRowResizable(int row, bool enabled, const WLength& initialSize) {
    grow(row + 1, 0);
    setLineResizable(false, row, enabled, initialSize);
}

// Items with a size of their own take the new one, so that they and whoever asks them agree with the line.
void WGridLayout::resizeLine(bool horizontal, int index, const WLength& size) {
    (horizontal ? mColumns : mRows)[static_cast<std::size_t>(index)].size = size;
    for (const auto& place : mPlaces) {
        WWidget* widget = place->item->widget();
        if (!widget) continue;
        if (horizontal && place->column == index && place->columnSpan == 1 && !widget->width().isAuto())
            widget->setWidth(size);
        if (!horizontal && place->row == index && place->rowSpan == 1 && !widget->height().isAuto())
            widget->setHeight(size);
    }
    changed();
}

int WGridLayout::columnStretch(int column) const {
    return column < columnCount() ? mColumns[static_cast<std::size_t>(column)].stretch : 0;
}

int WGridLayout::rowStretch(int row) const {
    return row < rowCount() ? mRows[static_cast<std::size_t>(row)].stretch : 0;
}

bool WGridLayout::columnIsResizable(int column) const {
    return column < columnCount() && mColumns[static_cast<std::size_t>(column)].resizable;
}

bool WGridLayout::rowIsResizable(int row) const {
    return row < rowCount() && mRows[static_cast<std::size_t>(row)].resizable;
}

int WGridLayout::columnCount() const {
    return static_cast<int>(mColumns.size());
}
int WGridLayout::rowCount() const {
    return static_cast<int>(mRows.size());
}
int WGridLayout::count() const {
    return static_cast<int>(mPlaces.size());
}

WLayoutItem* WGridLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? mPlaces[static_cast<std::size_t>(index)]->item.get() : nullptr;
}

void WGridLayout::adoptExtras() {
    Impl::RenderNode* parent = element();
    if (!parent) return;
    for (const bool horizontal : {true, false}) {
        auto& lines = horizontal ? mColumns : mRows;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (!lines[i].resizable) continue;
            const int index = static_cast<int>(i);
            if (!lines[i].divider)
                lines[i].divider =
                    std::make_unique<Impl::Divider>(horizontal, [this, horizontal, index](int size) {
                        resizeLine(horizontal, index, WLength(size));
                    });
            const std::string along = std::to_string(i + 1), across = "1 / -1";
            lines[i].divider->setPlace(horizontal ? across : along, horizontal ? along : across);
            lines[i].divider->setNodeParent(parent);
        }
    }
}

void WGridLayout::dropExtras() {
    for (auto* lines : {&mColumns, &mRows})
        for (Line& line : *lines) line.divider.reset();
}

void WGridLayout::appendNodes(std::vector<Impl::RenderNode*>& nodes) const {
    for (const auto& place : mPlaces) nodes.push_back(nodeOfItem(place->item.get()));
    for (const auto* lines : {&mColumns, &mRows})
        for (const Line& line : *lines)
            if (line.divider) nodes.push_back(line.divider.get());
}

// A dragged row whose items have sizes of their own is as large as they are, so that they can fold it.
std::string WGridLayout::track(bool horizontal, int index) const {
    const Line& line = (horizontal ? mColumns : mRows)[static_cast<std::size_t>(index)];
    const bool sized = std::any_of(mPlaces.begin(), mPlaces.end(), [&](const auto& place) {
        WWidget* widget = place->item->widget();
        const bool here = horizontal ? place->column == index && place->columnSpan == 1
                                     : place->row == index && place->rowSpan == 1;
        return here && widget && !(horizontal ? widget->width() : widget->height()).isAuto();
    });
    if (!line.size.isAuto() && !sized) return line.size.cssText();
    if (line.stretch > 0) return "minmax(0," + std::to_string(line.stretch) + "fr)";
    return line.resizable || sized ? "max-content" : "auto";
}

void WGridLayout::describeContainer(Impl::ElementSpec& spec) const {
    std::string columns, rows;
    for (int i = 0; i < columnCount(); ++i) columns += (i ? " " : "") + track(true, i);
    for (int i = 0; i < rowCount(); ++i) rows += (i ? " " : "") + track(false, i);
    spec.styleClass("Wt-grid");
    spec.style("display", "grid");
    spec.style("grid-template-columns", columns);
    spec.style("grid-template-rows", rows);
    spec.style("gap", std::to_string(mVerticalSpacing) + "px " + std::to_string(mHorizontalSpacing) + "px");
    describeMargins(spec);
}

void WGridLayout::describeItem(Impl::ElementSpec& spec, const WLayoutItem* item) const {
    for (const auto& place : mPlaces) {
        if (place->item.get() != item) continue;
        spec.style("grid-row", span(place->row, place->rowSpan));
        spec.style("grid-column", span(place->column, place->columnSpan));
        Impl::describeAlignment(spec, item, place->alignment, true, "justify-self", followsSize(item));
        const WWidget* widget = place->item->widget();
        const bool ownHeight = widget && !widget->height().isAuto() && place->row < rowCount() &&
                               mRows[static_cast<std::size_t>(place->row)].resizable;
        if (!ownHeight)
            Impl::describeAlignment(spec, item, place->alignment, false, "align-self", followsSize(item));
        return;
    }
}

} // namespace Wt
