#pragma once

#include <Wt/WTableView>

#include <cstdint>
#include <vector>

/// A table of records whose columns share the width that the layout gives: all alike, except those of a fixed
/// width, as are those that the user has dragged. Column 0 of the model is the hidden record index.
class WAutoSizeTableView : public Wt::WTableView {
public:
    /// Decides about a row of the table's model; `context` is passed through.
    using RowFilter = bool (*)(void* context, Wt::WModelIndex index);

    explicit WAutoSizeTableView(int columns, Wt::WContainerWidget* parent = nullptr);

    virtual void clearSelection();

    /// Selects the rows of these records instead of what was selected. Records that are not in the list are
    /// left out, and so is 0, which names none; an empty vector leaves the selection as it is.
    virtual void setSelectedZeqIndexes(const std::vector<unsigned int>& zeqIndexes);

    /// Adds to the selection, for each record, the first of its rows that passes the filter: a list may hold
    /// records of several kinds with the same index.
    virtual void setSelectedFilteredZeqIndexes(const std::vector<unsigned int>& zeqIndexes, void* context,
                                               RowFilter filter);

    /// Fixes the column at the width, as if the user had dragged it.
    void fixColumn(int column, int pixels);

    /// The same, and the other columns share the rest.
    virtual void columnResizedHandler(int column, Wt::WLength width);

    /// Shares `width` pixels among the columns that are not fixed.
    virtual void adaptToWidth(int width);

protected:
    void layoutSizeChanged(int width, int height) override;

private:
    void addRowsOf(std::vector<unsigned int> wanted, void* context, RowFilter filter,
                   Wt::WModelIndexSet& rows);

    std::uint8_t mNumColumns;
    std::vector<std::uint32_t> mUserColumnWidths; // by column, pixels; 0 = free
    std::int32_t mLastWidth = 0;                  // of the last adaptToWidth, pixels; 0 = none yet
};
