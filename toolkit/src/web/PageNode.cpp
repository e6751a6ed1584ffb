#include "web/PageNode.h"

#include "web/ElementSpec.h"

#include <algorithm>

namespace Wt::Impl {

void PageNode::describe(ElementSpec& spec) {
    spec.tag("div");
    spec.styleClass("Wt-page");
    spec.styleClass(mClasses);
}

void PageNode::childNodes(std::vector<RenderNode*>& children) {
    if (mRoot) children.push_back(mRoot);
    children.insert(children.end(), mLayers.begin(), mLayers.end());
}

void PageNode::setRoot(RenderNode* root) {
    mRoot = root;
    if (root) root->setNodeParent(this);
    nodeChildrenChanged();
}

void PageNode::setClasses(const std::string& classes) {
    mClasses = classes;
    nodeChanged();
}

void PageNode::addLayer(RenderNode& layer) {
    std::erase(mLayers, &layer);
    mLayers.push_back(&layer);
    layer.setNodeParent(this);
    nodeChildrenChanged();
}

void PageNode::removeLayer(RenderNode& layer) {
    popModal(layer);
    if (!std::erase(mLayers, &layer)) return;
    layer.setNodeParent(nullptr);
    nodeChildrenChanged();
}

void PageNode::pushModal(RenderNode& layer) {
    std::erase(mModal, &layer);
    mModal.push_back(&layer);
}

void PageNode::popModal(RenderNode& layer) {
    std::erase(mModal, &layer);
}

// A non-modal layer opened above the modal one is reachable.
bool PageNode::behindModal(const RenderNode& node) const {
    const RenderNode* top = modal();
    if (!top) return false;
    const RenderNode* layer = &node;
    while (layer->nodeParent() && layer->nodeParent() != this) layer = layer->nodeParent();
    const auto place = [&](const RenderNode* n) { return std::find(mLayers.begin(), mLayers.end(), n); };
    return layer == mRoot || place(layer) < place(top);
}

} // namespace Wt::Impl
