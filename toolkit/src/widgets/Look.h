#pragma once

#include <Wt/WAnimation.h>
#include <Wt/WCssDecorationStyle.h>
#include <Wt/WLength.h>
#include <Wt/WString.h>
#include <Wt/WWebWidget.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace Wt {

/// What few widgets have, in one piece that is made on first use.
struct WWebWidget::Look {
    enum Place : unsigned char {
        Width,
        Height,
        MinWidth,
        MinHeight,
        MaxWidth,
        MaxHeight,
        LineHeight,
        VerticalLength,
        OffsetTop,
        OffsetRight,
        OffsetBottom,
        OffsetLeft,
        MarginTop,
        MarginRight,
        MarginBottom,
        MarginLeft,
    };

    WLength length(Place place) const {
        for (const auto& [where, length] : mLengths)
            if (where == place) return length;
        return place == MinWidth || place == MinHeight ? WLength(0) : WLength::Auto;
    }
    /// False if it was that already.
    bool setLength(Place place, const WLength& length) {
        if (this->length(place) == length) return false;
        const auto known = std::find_if(mLengths.begin(), mLengths.end(),
                                        [&](const auto& entry) { return entry.first == place; });
        if (known != mLengths.end())
            known->second = length;
        else
            mLengths.emplace_back(place, length);
        return true;
    }

    /// What is seldom set even where there is a look.
    struct Rare {
        std::vector<std::pair<std::string, WString>> attributes;
        std::unique_ptr<WCssDecorationStyle> decoration;
        std::string givenId;
        WWidget* sizeListener = nullptr;
        int sizeWidth = -1, sizeHeight = -1; // as last reported
        WAnimation animation;                // of the last setHidden()
        std::optional<int> tabIndex;
        PositionScheme position = Static;
        Side floatSide = None;
        WFlags<Side> clearSides;
        bool unselectable = false;
        bool canReceiveFocus = false;
    };
    Rare& rare() {
        if (!mRare) mRare = std::make_unique<Rare>();
        return *mRare;
    }
    const Rare& seldom() const {
        static const Rare kNothing;
        return mRare ? *mRare : kNothing;
    }

    WString toolTip;
    AlignmentFlag vertical = AlignBaseline;
    TextFormat toolTipFormat = PlainText;
    // A size that layoutSizeChanged() only gives back is no wish: the layout stays free
    // (bit 1 width, bit 2 height).
    unsigned char echoed = 0;
    bool reporting = false;

private:
    std::vector<std::pair<Place, WLength>> mLengths;
    std::unique_ptr<Rare> mRare;
};

} // namespace Wt
