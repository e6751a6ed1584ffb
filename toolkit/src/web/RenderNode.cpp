#include <Wt/Impl/RenderNode.h>

#include "web/Renderer.h"

namespace Wt::Impl {

namespace {
thread_local std::uint32_t tOwnIds = 1; // of nodes without a session
thread_local std::uint32_t* tIds = nullptr;
} // namespace

void RenderNode::countIn(std::uint32_t* nextId) {
    tIds = nextId;
}

RenderNode::RenderNode()
    : mId((*(tIds ? tIds : &tOwnIds))++), mChanged(false), mChildrenChanged(false), mMessagePending(false),
      mBelowChanged(false) {}

RenderNode::~RenderNode() {
    if (mShown)
        if (Renderer* renderer = Renderer::current()) renderer->gone(*this);
    if (mNodeParent) mNodeParent->nodeChildrenChanged();
}

void RenderNode::childNodes(std::vector<RenderNode*>&) {}
void RenderNode::browserEvent(std::string_view, const boost::json::object&) {}
void RenderNode::browserValue(const boost::json::value&) {}
void RenderNode::afterRender(Renderer&, bool) {}

void RenderNode::nodeChanged() {
    if (!mShown || mChanged) return;
    mChanged = true;
    markParents();
}

void RenderNode::nodeChildrenChanged() {
    if (!mShown || mChildrenChanged) return;
    mChildrenChanged = true;
    markParents();
}

void RenderNode::nodeMessagePending() {
    if (!mShown || mMessagePending) return;
    mMessagePending = true;
    markParents();
}

void RenderNode::markParents() {
    for (RenderNode* node = mNodeParent; node && !node->mBelowChanged; node = node->mNodeParent)
        node->mBelowChanged = true;
}

void RenderNode::setNodeParent(RenderNode* parent) {
    if (mNodeParent == parent) return;
    if (mNodeParent) mNodeParent->nodeChildrenChanged();
    if (mShown)
        if (Renderer* renderer = Renderer::current()) renderer->forget(*this);
    mNodeParent = parent;
    if (parent) parent->nodeChildrenChanged();
}

} // namespace Wt::Impl
