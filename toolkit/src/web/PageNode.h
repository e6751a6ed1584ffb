#pragma once

#include <Wt/Impl/RenderNode.h>

#include <vector>

namespace Wt {

class WWidget;

namespace Impl {

/// The element under which everything of a page stands: the application's root and, above it, the open
/// dialogs in the order in which they were shown.
class PageNode : public RenderNode {
public:
    void describe(ElementSpec& spec) override;
    void childNodes(std::vector<RenderNode*>& children) override;

    /// Adds a layer on top; the caller owns it.
    void addLayer(RenderNode& layer);
    void removeLayer(RenderNode& layer);
    void setRoot(RenderNode* root);
    void setClasses(const std::string& classes);

    /// Only nodes at or below `layer` take events while it is the top of these.
    void pushModal(RenderNode& layer);
    void popModal(RenderNode& layer);
    RenderNode* modal() const { return mModal.empty() ? nullptr : mModal.back(); }
    bool behindModal(const RenderNode& node) const;

private:
    RenderNode* mRoot = nullptr;
    std::string mClasses;
    std::vector<RenderNode*> mLayers, mModal;
};

} // namespace Impl
} // namespace Wt
