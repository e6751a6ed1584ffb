#pragma once

#include <Wt/WContainerWidget.h>

namespace Wt {

class WTable;
class WTableColumn;
class WTableRow;

/// A cell of a WTable.
class WTableCell : public WContainerWidget {
public:
    ~WTableCell() override;

    /// The cell covers cells to the right or below; those covered are not shown.
    void setColumnSpan(int colSpan);
    void setRowSpan(int rowSpan);

    int columnSpan() const { return mColumnSpan; }
    int rowSpan() const { return mRowSpan; }
    int row() const;
    int column() const { return mColumn; }
    WTable* table() const;
    WTableRow* tableRow() const { return mRow; }
    WTableColumn* tableColumn() const;

protected:
    const char* tag() const override;
    void describe(Impl::ElementSpec& spec) override;

private:
    friend class WTable;
    friend class WTableRow;

    WTableCell(WTableRow* row, int column);

    WTableRow* mRow;
    int mColumn;
    unsigned short mColumnSpan = 1, mRowSpan = 1;
};

} // namespace Wt
