#pragma once

#include <Wt/WLength.h>
#include <Wt/WObject.h>

namespace Wt {

class WTable;
class WTableCell;

/// A column of a WTable.
class WTableColumn : public WObject {
public:
    ~WTableColumn() override;

    WTableCell* elementAt(int row);
    virtual void setWidth(const WLength& width);
    void setStyleClass(const WString& styleClass);

    WTable* table() const { return mTable; }
    int columnNum() const { return mColumn; }
    WLength width() const { return mWidth; }
    const std::string& styleClass() const { return mStyleClass; }

private:
    friend class WTable;
    friend class WTableCell;

    WTableColumn(WTable* table, int column);

    WTable* mTable;
    int mColumn;
    WLength mWidth;
    std::string mStyleClass;
};

} // namespace Wt
