#pragma once

#include <Wt/Impl/RenderNode.h>

namespace Wt {

class WLayout;

namespace Impl {

/// The element of a layout that stands inside another layout.
class LayoutBox : public RenderNode {
public:
    explicit LayoutBox(WLayout& layout) : mLayout(layout) {}

    void describe(ElementSpec& spec) override;
    void childNodes(std::vector<RenderNode*>& children) override;

private:
    WLayout& mLayout;
};

} // namespace Impl
} // namespace Wt
