#pragma once

#include <Wt/WAbstractItemView.h>

namespace Wt {

namespace Impl {
class TableWidget;
}

/// A table of a model's top level. Only the rows near the viewport are in the page,
/// so that a model may be large.
///
/// A model that is emptied and filled again between two events with what it held before costs the browser
/// nothing, and leaves scroll position and focus where they were.
class WTableView : public WAbstractItemView {
public:
    explicit WTableView(WContainerWidget* parent = nullptr);
    ~WTableView() override;

    void setColumnWidth(int column, const WLength& width) override;
    WLength columnWidth(int column) const override;
    void scrollTo(const WModelIndex& index, ScrollHint hint = EnsureVisible) override;

    int pageCount() const;
    int pageSize() const; ///< rows that fit the viewport, as the browser last told; at least 1
    int currentPage() const;
    void setCurrentPage(int page);

protected:
    void layoutSizeChanged(int width, int height) override;

private:
    void viewChanged() override;
    Impl::TableWidget* mTable; ///< owned as the implementation
};

} // namespace Wt
