#pragma once

#include <Wt/WAbstractItemModel.h>
#include <Wt/WCompositeWidget.h>
#include <Wt/WEvent.h>
#include <Wt/WLength.h>

#include <memory>
#include <vector>

namespace Wt {

namespace Impl {
class TableWidget;
class ViewColumns;
struct ViewColumn;
class ViewSelection;
} // namespace Impl

/// What views of models share: columns, selection, sorting by headers, and the signals about items. The model
/// belongs to the application and must outlive the view, or be replaced.
class WAbstractItemView : public WCompositeWidget {
public:
    enum ScrollHint { EnsureVisible, PositionAtTop, PositionAtBottom, PositionAtCenter };

    ~WAbstractItemView() override;

    virtual void setModel(WAbstractItemModel* model); ///< clears the selection
    WAbstractItemModel* model() const { return mModel; }

    void setHeaderAlignment(int column, WFlags<AlignmentFlag> alignment);
    AlignmentFlag horizontalHeaderAlignment(int column) const;
    virtual void setColumnAlignment(int column, AlignmentFlag alignment);
    virtual AlignmentFlag columnAlignment(int column) const; ///< default AlignLeft
    virtual void setAlternatingRowColors(bool enable);       ///< default off
    bool alternatingRowColors() const { return mAlternating; }

    void setSortingEnabled(bool enabled); ///< default on
    void setSortingEnabled(int column, bool enabled);
    bool isSortingEnabled() const;
    bool isSortingEnabled(int column) const;
    void sortByColumn(int column, SortOrder order);
    int sortColumn() const { return mSortColumn; } ///< -1: none
    SortOrder sortOrder() const { return mSortOrder; }

    void setColumnResizeEnabled(bool enabled); ///< default on
    bool isColumnResizeEnabled() const { return mResizeEnabled; }

    void setSelectionBehavior(SelectionBehavior behavior); ///< default SelectRows
    SelectionBehavior selectionBehavior() const;
    void setSelectionMode(SelectionMode mode); ///< default NoSelection; clears the selection
    SelectionMode selectionMode() const;

    /// With SelectRows the indexes are those of column 0.
    /// A selected item stays selected while it is in the model.
    void setSelectedIndexes(const WModelIndexSet& indexes);
    void clearSelection();
    void select(const WModelIndex& index, SelectionFlag option = Select);
    bool isSelected(const WModelIndex& index) const;
    WModelIndexSet selectedIndexes() const;

    virtual void setColumnWidth(int column, const WLength& width) = 0; ///< default 150 px
    virtual WLength columnWidth(int column) const = 0;
    virtual void setColumnHidden(int column, bool hidden);
    virtual bool isColumnHidden(int column) const;
    virtual void hideColumn(int column);
    virtual void showColumn(int column);
    virtual void setRowHeight(const WLength& height); ///< default 20 px
    WLength rowHeight() const { return mRowHeight; }
    virtual void setHeaderHeight(const WLength& height); ///< default 20 px; 0 hides the header
    WLength headerHeight() const { return mHeaderHeight; }

    virtual void scrollTo(const WModelIndex& index, ScrollHint hint = EnsureVisible) = 0;

    Signal<WModelIndex, WMouseEvent>& clicked();
    Signal<WModelIndex, WMouseEvent>& doubleClicked();
    Signal<WModelIndex, WMouseEvent>& mouseWentDown();
    Signal<WModelIndex, WMouseEvent>& mouseWentUp();
    Signal<>& selectionChanged();          ///< by the user, by a call, or because selected rows were removed
    Signal<int, WLength>& columnResized(); ///< the user changed a column's width; it is set already
    Signal<int, WMouseEvent>& headerClicked();
    Signal<int, WMouseEvent>& headerDoubleClicked();

protected:
    explicit WAbstractItemView(WContainerWidget* parent = nullptr);
    Impl::ViewColumn& editColumn(int column);
    const Impl::ViewColumn& columnAt(int column) const;

private:
    friend class Impl::TableWidget;
    struct SignalSet;
    SignalSet& signalsOf();

    virtual void viewChanged() = 0; ///< something that is drawn may have changed
    bool selectable(int row, int column) const;
    void selectionTouched(bool changed);
    void headerUsed(int column, const WMouseEvent& event);

    void modelRowsAboutToBeChanged(const WModelIndex& parent);
    void modelRowsInserted(const WModelIndex& parent, int first, int last);
    void modelRowsRemoved(const WModelIndex& parent, int first, int last);
    void modelColumnsInserted(const WModelIndex& parent, int first, int last);
    void modelColumnsRemoved(const WModelIndex& parent, int first, int last);
    void modelLayoutAboutToBeChanged();
    void modelLayoutChanged();
    void modelReset();

    WAbstractItemModel* mModel = nullptr;
    std::vector<Wt::Signals::connection> mConnections;
    std::unique_ptr<Impl::ViewColumns> mColumns;
    std::unique_ptr<Impl::ViewSelection> mSelection;
    std::unique_ptr<SignalSet> mSignals;
    WLength mRowHeight{20}, mHeaderHeight{20};
    SortOrder mSortOrder = AscendingOrder;
    int mSortColumn = -1;
    int mRowsBefore = 0; ///< rows before the change that the model has announced
    bool mAlternating = false;
    bool mSorting = true;
    bool mResizeEnabled = true;
};

} // namespace Wt
