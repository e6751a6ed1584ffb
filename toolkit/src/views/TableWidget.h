#pragma once

#include "views/TableShown.h"

#include <Wt/WAbstractItemView.h>
#include <Wt/WInteractWidget.h>

namespace Wt::Impl {

/// The element of a table view: takes the browser's reports (client/table.js) and sends what differs. The
/// rows are no widgets and no nodes; TableShown remembers them.
class TableWidget : public WInteractWidget {
public:
    static constexpr int kFirstRows = 40;     ///< sent before the browser has told how many it has room for
    static constexpr int kMostRows = 600;     ///< kept in the page at a time
    static constexpr int kMostViewport = 300; ///< rows; a larger viewport is not believed

    explicit TableWidget(WAbstractItemView& view);

    void scrollTo(int row, WAbstractItemView::ScrollHint hint);
    int firstInView() const { return mFirstInView; }
    int pageRows() const { return mPageRows; } ///< 0 while unknown

    void browserEvent(std::string_view kind, const boost::json::object& event) override;
    bool nodeAcceptsEvents() const override { return isVisible(); } ///< scrolling works when disabled
    void afterRender(Renderer& renderer, bool fresh) override;

protected:
    void describe(ElementSpec& spec) override;
    bool needsKeyboardStop() const override { return false; } ///< it is one
    void propagateSetEnabled(bool enabled) override;

private:
    void range(const boost::json::object& event);
    void mouse(std::string_view action, const boost::json::object& event);
    void key(const boost::json::object& event);
    void resizeColumn(const boost::json::object& event);
    void showRow(int row);
    int rows() const;
    int listens() const;

    WAbstractItemView& mView;
    TableShown mShown;
    int mFirstInView = 0, mPageRows = 0;
    int mScrollRow = -1; ///< to be brought into view at the next rendering
    WAbstractItemView::ScrollHint mScrollHint = WAbstractItemView::EnsureVisible;
    std::shared_ptr<char> mAlive =
        std::make_shared<char>(); ///< watched over handlers, which may delete the view
};

} // namespace Wt::Impl
