#pragma once

#include <Wt/WLayout.h>
#include <Wt/WLength.h>

namespace Wt {

/// Places items in a row or a column. Room that is left goes to the items by their stretch; with no stretch
/// at all, to all alike. An alignment keeps an item at its own size in that direction.
class WBoxLayout : public WLayout {
public:
    enum Direction { LeftToRight, RightToLeft, TopToBottom, BottomToTop };

    explicit WBoxLayout(Direction direction, WWidget* parent = nullptr);
    ~WBoxLayout() override;

    void addItem(WLayoutItem* item) override;
    void removeItem(WLayoutItem* item) override;
    void clear() override;
    void setDirection(Direction direction);
    void setSpacing(int size); ///< pixels between items, default 6
    void addWidget(WWidget* widget, int stretch = 0,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void addLayout(WLayout* layout, int stretch = 0,
                   WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void addSpacing(const WLength& size);
    void addStretch(int stretch = 0);
    void insertWidget(int index, WWidget* widget, int stretch = 0,
                      WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void insertLayout(int index, WLayout* layout, int stretch = 0,
                      WFlags<AlignmentFlag> alignment = WFlags<AlignmentFlag>());
    void insertSpacing(int index, const WLength& size);
    void insertStretch(int index, int stretch = 0);
    bool setStretchFactor(WWidget* widget, int stretch);
    bool setStretchFactor(WLayout* layout, int stretch);
    /// Lets the user drag the boundary behind the item. `initialSize`: of the item.
    void setResizable(int index, bool enabled = true, const WLength& initialSize = WLength::Auto);

    Direction direction() const { return mDirection; }
    int spacing() const { return mSpacing; }
    int count() const override;
    WLayoutItem* itemAt(int index) const override;
    bool isResizable(int index) const;

private:
    struct Place;

    void insert(int index, std::unique_ptr<Place> place);
    Place* find(const WLayoutItem* item) const;
    bool horizontal() const { return mDirection == LeftToRight || mDirection == RightToLeft; }
    void describeContainer(Impl::ElementSpec& spec) const override;
    void describeItem(Impl::ElementSpec& spec, const WLayoutItem* item) const override;
    void appendNodes(std::vector<Impl::RenderNode*>& nodes) const override;
    void adoptExtras() override;
    void dropExtras() override;
    void resizeItem(Place& place, const WLength& size);
    std::string minimumAlong(const WLayoutItem* item) const;

    std::vector<std::unique_ptr<Place>> mPlaces;
    Direction mDirection;
    int mSpacing = 6;
};

} // namespace Wt
