#pragma once

#include <Wt/WInteractWidget.h>

namespace Wt {

class WTableCell;
class WTableColumn;
class WTableRow;

/// A table of cells. Asking for a cell makes it, with all rows and columns up to it.
class WTable : public WInteractWidget {
public:
    explicit WTable(WContainerWidget* parent = nullptr);
    ~WTable() override;

    WTableCell* elementAt(int row, int column);
    WTableRow* rowAt(int row);
    WTableColumn* columnAt(int column);
    WTableRow* insertRow(int row);
    WTableColumn* insertColumn(int column);
    /// Deletes the row or column with its cells.
    void deleteRow(int row);
    void deleteColumn(int column);
    void clear();
    /// The first rows or columns are headings.
    void setHeaderCount(int count, Orientation orientation = Horizontal);
    void moveRow(int from, int to);

    int rowCount() const { return static_cast<int>(mRows.size()); }
    int columnCount() const { return static_cast<int>(mColumns.size()); }
    int headerCount(Orientation orientation = Horizontal) const;

    void refresh() override;
    WWidget* find(const std::string& name) override;
    void childNodes(std::vector<Impl::RenderNode*>& children) override;

protected:
    const char* tag() const override { return "table"; }
    void describe(Impl::ElementSpec& spec) override;
    void propagateSetEnabled(bool enabled) override;
    void propagateSetVisible(bool visible) override;

private:
    friend class WTableCell;
    friend class WTableColumn;
    friend class WTableRow;

    void expand(int rows, int columns);
    void renumber();
    bool isHeader(const WTableCell& cell) const;
    bool isCovered(int row, int column) const;
    void cellsChanged();

    std::vector<WTableRow*> mRows;       // owned
    std::vector<WTableColumn*> mColumns; // owned
    int mHeaderRows = 0, mHeaderColumns = 0;
    bool mSpans = false; // some cell spans others
};

} // namespace Wt
