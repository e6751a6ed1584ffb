#pragma once

#include <Wt/WLayout.h>
#include <Wt/WLength.h>

namespace Wt {

/// Places items in a grid. Room that is left goes to rows and columns by their stretch;
/// with none, to all alike.
class WGridLayout : public WLayout {
public:
    explicit WGridLayout(WWidget* parent = nullptr);
    ~WGridLayout() override;

    void addItem(WLayoutItem* item) override; ///< at (0, 0)
    void removeItem(WLayoutItem* item) override;
    void clear() override;
    void addWidget(WWidget* widget, int row, int column,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void addWidget(WWidget* widget, int row, int column, int rowSpan, int columnSpan,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void addLayout(WLayout* layout, int row, int column,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void addLayout(WLayout* layout, int row, int column, int rowSpan, int columnSpan,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void setHorizontalSpacing(int size); ///< pixels between columns, default 6
    void setVerticalSpacing(int size);   ///< pixels between rows, default 6
    void setColumnStretch(int column, int stretch);
    void setRowStretch(int row, int stretch);
    /// Lets the user drag the boundary behind the column or row. `initialSize`: of that column or row.
    void setColumnResizable(int column, bool enabled = true, const WLength& initialSize = WLength::Auto);
    void setRowResizable(int row, bool enabled = true, const WLength& initialSize = WLength::Auto);

    int horizontalSpacing() const { return mHorizontalSpacing; }
    int verticalSpacing() const { return mVerticalSpacing; }
    int columnStretch(int column) const;
    int rowStretch(int row) const;
    bool columnIsResizable(int column) const;
    bool rowIsResizable(int row) const;
    int columnCount() const;
    int rowCount() const;
    int count() const override;
    WLayoutItem* itemAt(int index) const override;

private:
    struct Place;
    struct Line;

    void insert(WLayoutItem* item, int row, int column, int rowSpan, int columnSpan,
                WFlags<AlignmentFlag> alignment);
    void grow(int rows, int columns);
    void describeContainer(Impl::ElementSpec& spec) const override;
    void describeItem(Impl::ElementSpec& spec, const WLayoutItem* item) const override;
    void appendNodes(std::vector<Impl::RenderNode*>& nodes) const override;
    void adoptExtras() override;
    void dropExtras() override;
    void setLineResizable(bool horizontal, int index, bool enabled, const WLength& size);
    void resizeLine(bool horizontal, int index, const WLength& size);
    std::string track(bool horizontal, int index) const;

    std::vector<std::unique_ptr<Place>> mPlaces;
    std::vector<Line> mRows, mColumns;
    int mHorizontalSpacing = 6, mVerticalSpacing = 6;
};

} // namespace Wt
