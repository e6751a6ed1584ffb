#pragma once

#include <Wt/WContainerWidget>

#include <span>
#include <string>

namespace Wt {
class WStandardItemModel;
}

class WAutoSizeTableView;
class WNumericSortFilterProxyModel;

/// A table of texts in the details pane that can be sorted, but not selected.
class DevShownRows : public Wt::WContainerWidget {
public:
    Wt::WStandardItemModel* model() const { return mModel; }
    WNumericSortFilterProxyModel* proxy() const { return mProxy; }

protected:
    /// Message keys of the columns, and of what stands there while there is no row.
    DevShownRows(std::span<const char* const> headers, const char* emptyKey, Wt::WContainerWidget* parent);

    void layoutSizeChanged(int width, int height) override;
    void clearRows();
    void setText(int row, int column, const std::string& text);

    WAutoSizeTableView* mView;
    WNumericSortFilterProxyModel* mProxy; // owned by the view
    Wt::WStandardItemModel* mModel;       // owned by the proxy
};
