#include "views/TableWidget.h"

#include "core/ForeignJson.h"
#include "views/ViewColumns.h"
#include "views/ViewSelection.h"
#include "web/ElementSpec.h"
#include "web/Renderer.h"

#include <boost/json/object.hpp>

#include <algorithm>

namespace Wt::Impl {

TableWidget::TableWidget(WAbstractItemView& view) : mView(view) {
    setInline(false);
}

int TableWidget::rows() const {
    return mView.mModel ? mView.mModel->rowCount() : 0;
}

// ---- to the browser

void TableWidget::describe(ElementSpec& spec) {
    WInteractWidget::describe(spec);
    spec.behaviour("table");
    spec.attribute("role", "grid");
    spec.attribute("aria-readonly", "true");
    if (mView.selectionMode() == ExtendedSelection) spec.attribute("aria-multiselectable", "true");
    if (isEnabled())
        spec.attribute("tabindex", "0");
    else
        spec.attribute("aria-disabled", "true");
    spec.styleClass("Wt-itemview Wt-tableview");
    spec.listen("table");
    spec.listen("range");
}

void TableWidget::propagateSetEnabled(bool enabled) {
    WInteractWidget::propagateSetEnabled(enabled);
    nodeChanged();
}

/// A double click acts like Enter, so it is wanted only where somebody acts on it.
int TableWidget::listens() const {
    return (mView.mouseWentDown().isConnected() ? TableShown::MouseDown : 0) |
           (mView.mouseWentUp().isConnected() ? TableShown::MouseUp : 0) |
           (mView.doubleClicked().isConnected() ? TableShown::DoubleClick : 0);
}

void TableWidget::afterRender(Renderer& renderer, bool fresh) {
    if (fresh) mShown.forget();
    if (fresh && mFirstInView > 0 && mScrollRow < 0) { // a page loaded anew begins at the top
        mScrollRow = mFirstInView;
        mScrollHint = WAbstractItemView::PositionAtTop;
    }
    const int total = rows();
    mView.mSelection->settle(total);
    const int page = mPageRows ? mPageRows : kFirstRows;
    // Half a page of spare rows on either side: a turn of the wheel finds them in the page already.
    int first = mFirstInView - page / 2 - 5, last = mFirstInView + page + page / 2 + 5;
    if (mScrollRow >= 0) {
        first = std::min(first, mScrollRow - page);
        last = std::max(last, mScrollRow + page);
        if (last - first > kMostRows) {
            first = mScrollRow - page;
            last = mScrollRow + page;
        }
    }
    if (first >= total)
        first = std::max(0, total - 2 * page); // the list has become shorter than the scroll position
    const std::string message = mShown.update({.model = mView.mModel,
                                               .columns = *mView.mColumns,
                                               .selection = *mView.mSelection,
                                               .first = first,
                                               .last = last,
                                               .sortColumn = mView.mSortColumn,
                                               .descending = mView.mSortOrder == DescendingOrder,
                                               .sortingEnabled = mView.mSorting,
                                               .resizable = mView.mResizeEnabled,
                                               .alternating = mView.mAlternating,
                                               .rowHeight = mView.mRowHeight.toPixels(),
                                               .headerHeight = mView.mHeaderHeight.toPixels(),
                                               .listens = listens()});
    if (!message.empty()) renderer.call(*this, "update", "[{" + message + "}]");
    if (mScrollRow >= 0) {
        renderer.call(*this, "scroll",
                      "[" + std::to_string(mScrollRow) + "," + std::to_string(mScrollHint) + "]");
        mScrollRow = -1;
    }
}

void TableWidget::scrollTo(int row, WAbstractItemView::ScrollHint hint) {
    mScrollRow = row;
    mScrollHint = hint;
    nodeMessagePending();
}

// ---- from the browser

void TableWidget::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind == "range") return range(event);
    if (kind != "table") return WInteractWidget::browserEvent(kind, event);
    if (!isEnabled()) return;
    const std::string_view action = foreignText(event, "a");
    if (action == "key")
        key(event);
    else if (action == "width")
        resizeColumn(event);
    else if (action == "header")
        mView.headerUsed(foreignInt(event, "c", -1), WMouseEvent(event));
    else
        mouse(action, event);
}

void TableWidget::range(const boost::json::object& event) {
    mFirstInView = std::clamp(foreignInt(event, "first"), 0, std::max(0, rows() - 1));
    mPageRows = std::clamp(foreignInt(event, "page"), 1, kMostViewport);
    nodeMessagePending();
}

void TableWidget::mouse(std::string_view action, const boost::json::object& event) {
    const int row = foreignInt(event, "r", -1), column = foreignInt(event, "c", -1);
    const auto drawn = static_cast<std::uint32_t>(std::max(0, foreignInt(event, "n")));
    if (!mShown.unchangedSince(row, drawn)) return; // the user aimed at what stood there before
    const WModelIndex index = mView.mModel ? mView.mModel->index(row, column) : WModelIndex();
    if (!index.isValid()) return;
    const WMouseEvent mouse(event);
    const bool left = mouse.button() != WMouseEvent::RightButton;
    if (action == "down") {
        mView.mouseWentDown().emit(index, mouse);
    } else if (action == "up") {
        mView.mouseWentUp().emit(index, mouse);
    } else if (action == "dbl") {
        mView.doubleClicked().emit(index, mouse);
    } else if (action == "click" && left) {
        const bool shift = mouse.modifiers().testFlag(ShiftModifier);
        const bool ctrl =
            mouse.modifiers().testFlag(ControlModifier) || mouse.modifiers().testFlag(MetaModifier);
        const bool changed = mView.mSelection->click({row, column}, shift, ctrl, [this](auto place) {
            return mView.selectable(place.first, place.second);
        });
        const std::weak_ptr<char> alive = mAlive;
        mView.selectionTouched(changed);
        if (!alive.expired()) mView.clicked().emit(index, mouse);
    }
}

void TableWidget::key(const boost::json::object& event) {
    const int total = rows();
    if (!total) return;
    const std::string_view name = foreignText(event, "key");
    const WKeyEvent key(event);
    const bool shift = key.modifiers().testFlag(ShiftModifier);
    const bool ctrl = key.modifiers().testFlag(ControlModifier) || key.modifiers().testFlag(MetaModifier);
    ViewSelection& selection = *mView.mSelection;
    selection.settle(total);
    const auto selectable = [this](auto place) { return mView.selectable(place.first, place.second); };
    const int current = selection.current();
    const int page = std::max(1, mPageRows - 1);
    const struct {
        std::string_view key;
        int row;
    } moves[] = {
        {"ArrowUp", current < 0 ? 0 : current - 1},
        {"ArrowDown", current + 1},
        {"PageUp", current - page},
        {"PageDown", std::max(current, 0) + page},
        {"Home", 0},
        {"End", total - 1},
    };
    for (const auto& move : moves) {
        if (move.key != name) continue;
        const int row = std::clamp(move.row, 0, total - 1);
        const bool changed = selection.moveTo(row, shift, ctrl, selectable);
        showRow(row);
        return mView.selectionTouched(changed);
    }
    if (name == "a" && ctrl)
        mView.selectionTouched(selection.selectAll(total, mView.mModel->columnCount(), selectable));
    else if (name == " " && current >= 0)
        mView.selectionTouched(selection.click({current, 0}, shift, ctrl, selectable));
    else if (name == "Enter" && current >= 0 && !mShown.visibleColumns().empty())
        mView.doubleClicked().emit(mView.mModel->index(current, mShown.visibleColumns().front()),
                                   WMouseEvent());
}

void TableWidget::showRow(int row) {
    if (mPageRows && row >= mFirstInView && row < mFirstInView + mPageRows - 1) return;
    scrollTo(std::min(row, rows() - 1), WAbstractItemView::EnsureVisible);
}

void TableWidget::resizeColumn(const boost::json::object& event) {
    const int column = foreignInt(event, "c", -1);
    const int columns = mView.mModel ? mView.mModel->columnCount() : 0;
    if (!mView.mResizeEnabled || column < 0 || column >= columns || mView.isColumnHidden(column)) return;
    const double width =
        std::clamp<double>(foreignInt(event, "w"), ViewColumns::kMinWidth, ViewColumns::kMaxWidth);
    mView.setColumnWidth(column, WLength(width));
    mView.columnResized().emit(column, WLength(width));
}

} // namespace Wt::Impl
