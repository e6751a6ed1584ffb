#pragma once

#include "frame/WAutoSizeTableView.h"

#include <initializer_list>
#include <string>

namespace Wt {
class WStandardItemModel;
}

class WNumericSortFilterProxyModel;

/// A list of records of which the user picks one. Column 0 is hidden and holds the record index.
class WEstabSesTable : public WAutoSizeTableView {
public:
    virtual void clearData();

    /// Record index of the one selected row; 0 when none is selected.
    unsigned int selectedZeqIndex() const;

protected:
    /// headers: texts of the columns beside the hidden one.
    explicit WEstabSesTable(std::initializer_list<Wt::WString> headers,
                            Wt::WContainerWidget* parent = nullptr);

    /// texts: UTF-8, one for each header.
    void addRecord(unsigned int index, std::initializer_list<std::string> texts);

private:
    // Owned by this.
    WNumericSortFilterProxyModel* mProxy;
    Wt::WStandardItemModel* mModel;
};
