#pragma once

#include <Wt/Impl/RenderNode.h>

#include <functional>
#include <string>

namespace Wt::Impl {

/// The boundary behind an item that the user drags, with mouse, finger or arrow keys: an ARIA separator.
class Divider : public RenderNode {
public:
    /// Largest size that a browser may ask for, in pixels.
    static constexpr int kMaxSize = 20'000;

    /// `horizontal`: the items stand side by side.
    /// `resized`: gets the new size of the item in front, in pixels.
    Divider(bool horizontal, std::function<void(int)> resized)
        : mResized(std::move(resized)), mHorizontal(horizontal) {}

    /// Where it stands in a grid: values of grid-row and grid-column.
    void setPlace(std::string row, std::string column);

    void describe(ElementSpec& spec) override;
    void browserEvent(std::string_view kind, const boost::json::object& event) override;

private:
    std::function<void(int)> mResized;
    std::string mRow, mColumn;
    bool mHorizontal;
};

/// Empty room between items.
class Spacer : public RenderNode {
public:
    explicit Spacer(std::string flex) : mFlex(std::move(flex)) {}
    void describe(ElementSpec& spec) override;

private:
    std::string mFlex;
};

} // namespace Wt::Impl
