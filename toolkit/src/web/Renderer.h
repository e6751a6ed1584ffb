#pragma once

#include "web/ElementSpec.h"

#include <Wt/Impl/RenderNode.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Wt::Impl {

/// What the browser shows of a node: one hash a property, and the ids of its children.
struct Shown {
    std::unique_ptr<std::uint64_t[]> properties; // key in the upper 24 bits, hash of the JSON text below
    std::unique_ptr<std::uint32_t[]> children;
    std::uint32_t childCount = 0;
    std::uint16_t propertyCount = 0;
    bool childrenSent = false; // false: hidden since its creation
};

/// Turns changed nodes into page operations (docs/page-protocol.md). One per session.
class Renderer {
public:
    /// `root` becomes the only child of the page's own element; it outlives this.
    explicit Renderer(RenderNode& root) : mRoot(root) {}
    ~Renderer();
    Renderer(const Renderer&) = delete;
    Renderer& operator=(const Renderer&) = delete;

    /// A page operation: a JSON array. Sent at the next flush, after those of the elements.
    void operation(std::string_view json);
    /// Calls `method` of the node's behaviour with `argumentsJson` (a JSON array),
    /// after all elements are there.
    void call(const RenderNode& node, std::string_view method, std::string_view argumentsJson);
    /// The user changed a property in the browser: that is what it shows now.
    /// `json` as ElementSpec writes it.
    void shownByBrowser(RenderNode& node, std::string_view property, std::string_view json);
    /// Everything that changed since the last flush as a JSON array; empty if nothing did.
    std::string flush();
    /// The page is gone and another one will show everything anew.
    void forgetAll();

    /// A node that is in the page and listens to events or has a value; null if there is none of that id.
    RenderNode* find(std::uint32_t id) const;

    /// The renderer of the session that this thread runs, or null.
    static Renderer* current();
    static void setCurrent(Renderer* renderer);

    // For RenderNode.
    void forget(RenderNode& node);
    void gone(RenderNode& node);

private:
    void visit(RenderNode& node);
    void update(RenderNode& node);
    void updateChildren(RenderNode& node);
    void create(std::string& out, RenderNode& node);
    void replace(RenderNode& node);
    /// Fills mSpec.
    void describe(RenderNode& node);
    void remember(RenderNode& node);
    void visitChildren(RenderNode& node);
    static void rememberChildren(RenderNode& node, const std::vector<RenderNode*>& children);

    RenderNode& mRoot;
    ElementSpec mSpec;
    std::unordered_map<std::uint32_t, RenderNode*> mReachable;
    std::vector<std::pair<RenderNode*, bool>> mAfter; // afterRender() is due; true: the element is new
    std::string mRemovals, mChanges, mCalls, mOperations;
};

} // namespace Wt::Impl
