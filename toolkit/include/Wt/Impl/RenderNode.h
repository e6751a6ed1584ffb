#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace boost::json {
class value;
class object;
} // namespace boost::json

namespace Wt::Impl {

class ElementSpec;
class Renderer;
struct Shown;

/// One element of the page. A widget says what its element looks like *now*; what the browser already shows
/// is remembered here, so that only differences are sent. docs/toolkit.md tells how to write a widget.
class RenderNode {
public:
    RenderNode();
    virtual ~RenderNode();
    RenderNode(const RenderNode&) = delete;
    RenderNode& operator=(const RenderNode&) = delete;

    /// Says everything about the element: tag, attributes, styles, text, events. Called at the flush after
    /// nodeChanged(); must not change any widget.
    virtual void describe(ElementSpec& spec) = 0;
    /// Appends the child elements in page order. Called at the flush after nodeChildrenChanged().
    virtual void childNodes(std::vector<RenderNode*>& children);
    /// A hidden element that has not been shown yet is not sent with its children until it appears.
    virtual bool nodeHidden() const { return false; }
    /// It is sent with its children although it is hidden; later changes below wait until it appears.
    virtual bool nodePreloaded() const { return false; }
    /// False: what the browser reports about this element is dropped (disabled, hidden,
    /// behind a modal dialog).
    virtual bool nodeAcceptsEvents() const { return true; }

    /// An event that the description listens to; `event` is foreign: check types and ranges.
    virtual void browserEvent(std::string_view kind, const boost::json::object& event);
    /// The user's value of a form field; arrives before the handlers of the event it came with.
    virtual void browserValue(const boost::json::value& value);
    /// Sends messages to the behaviour of the element, after its description and children (Renderer::call).
    virtual void afterRender(Renderer& renderer, bool fresh);

    /// New nodes of this thread get their ids from here, so that they differ in a session whichever thread
    /// makes them; null: from a counter of the thread's own.
    static void countIn(std::uint32_t* nextId);

    std::uint32_t nodeId() const { return mId; }
    RenderNode* nodeParent() const { return mNodeParent; }
    bool nodeRendered() const { return mShown != nullptr; }

    /// The description may differ. Cheap; A, B, A within one event sends nothing.
    void nodeChanged();
    void nodeChildrenChanged();
    /// afterRender() is wanted although nothing else changed.
    void nodeMessagePending();

    /// To be called by whoever puts the node into its children, and with null by whoever takes it out.
    void setNodeParent(RenderNode* parent);

private:
    friend class Renderer;

    void markParents();

    RenderNode* mNodeParent = nullptr;
    std::unique_ptr<Shown> mShown; // null: not in the page
    std::uint32_t mId;
    bool mChanged : 1;
    bool mChildrenChanged : 1;
    bool mMessagePending : 1;
    bool mBelowChanged : 1;
};

} // namespace Wt::Impl
