#pragma once

#include <Wt/WTableView>

#include <cstdint>
#include <vector>

/// A table of records whose columns share the width that the layout gives: all alike, except those that the
/// user has dragged, which keep their width from then on. Column 0 of the model is the hidden record index.
class WAutoSizeTableView : public Wt::WTableView {
public:
    /// Decides about a row of the table's model; `context` is passed through.
    using RowFilter = bool (*)(void* context, Wt::WModelIndex index);

    explicit WAutoSizeTableView(int columns, Wt::WContainerWidget* parent = nullptr);

    virtual void clearSelection();

    /// Selects the rows of these records instead of what was selected. Records that are not in the list are
    /// left out; an empty vector leaves the selection as it is.
    virtual void setSelectedZeqIndexes(const std::vector<unsigned int>& zeqIndexes);

    /// Adds to the selection, for each record, the first of its rows that passes the filter: a list may hold
    /// records of several kinds with the same index.
    virtual void setSelectedFilteredZeqIndexes(const std::vector<unsigned int>& zeqIndexes, void* context,
                                               RowFilter filter);

    /// Fixes the column at the width.
    virtual void columnResizedHandler(int column, Wt::WLength width);

    /// Shares `width` pixels among the columns that the user has not fixed.
    virtual void adaptToWidth(int width);

protected:
    void layoutSizeChanged(int width, int height) override;

private:
    void shareAmongAllColumns(int width);
    void shareAmongFreeColumns(int width);
    void setShare(int column, double share);
    void addRowsOf(std::vector<unsigned int> wanted, void* context, RowFilter filter,
                   Wt::WModelIndexSet& rows);

    std::uint8_t mNumColumns;
    std::uint8_t mNumHiddenColumns = 0; // counted at the first adaptToWidth
    bool mColumnsInitialised = false;
    std::vector<std::uint32_t> mUserColumnWidths; // by column, pixels; 0 = free
    std::int32_t mLastWidth = 0;                  // of the last adaptToWidth, pixels
};
