#pragma once

#include <Wt/WTableView>

namespace Wt {
class WStandardItemModel;
}

class WNumericSortFilterProxyModel;

/// The firmware files that the database remembers.
class WDevViewChooseFwUpdateSrcTable : public Wt::WTableView {
public:
    explicit WDevViewChooseFwUpdateSrcTable(Wt::WContainerWidget* parent = nullptr);

    /// A failed read leaves the list empty.
    void readFromDatabase();
    /// Takes the selected files out of the list and out of the database, whatever the latter answers.
    void deleteSelected();

    int rowCount() const;
    int numSelected() const;
    /// Record index of the one selected file; 0 if none or several are.
    unsigned selectedZeqIndex() const;

private:
    Wt::WStandardItemModel* mModel;       // owned by the proxy
    WNumericSortFilterProxyModel* mProxy; // owned by this
};
