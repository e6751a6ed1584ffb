// WAbstractToggleButton and WCheckBox.
#include <Wt/WCheckBox.h>

#include "text/DescribeText.h"
#include "web/ElementSpec.h"
#include "web/Renderer.h"
#include "web/WebSession.h"

#include <boost/json/value.hpp>

#include <string>

namespace Wt {

/// The input element inside the label. It takes the events: a click on a label comes twice,
/// once for the input.
class WAbstractToggleButton::Input : public Impl::RenderNode {
public:
    explicit Input(WAbstractToggleButton& owner) : mOwner(owner) {}

    void describe(Impl::ElementSpec& spec) override {
        spec.tag("input");
        spec.attribute("type", mOwner.inputType());
        mOwner.describeField(spec);
        mOwner.describeEvents(spec);
        spec.listen("value");
        if (mOwner.isListened("checked") || mOwner.isListened("unchecked")) spec.listen("change");
        for (const char* name : {"aria-label", "aria-labelledby", "aria-describedby"}) {
            const WString words = mOwner.attributeValue(name);
            if (!words.empty()) spec.attribute(name, words.toUTF8());
        }
        spec.property("checked", mOwner.mState == Checked);
        if (mOwner.supportsIndeterminate()) spec.property("indeterminate", mOwner.mState == PartiallyChecked);
    }

    bool nodeAcceptsEvents() const override { return mOwner.nodeAcceptsEvents(); }

    void browserEvent(std::string_view kind, const boost::json::object& event) override {
        mOwner.browserEvent(kind, event);
    }

    void browserValue(const boost::json::value& value) override {
        if (!value.is_bool() || mOwner.isReadOnly()) return;
        mOwner.mState = value.get_bool() ? Checked : Unchecked;
        if (auto* renderer = Impl::Renderer::current()) {
            renderer->shownByBrowser(*this, "checked", value.get_bool() ? "true" : "false");
            renderer->shownByBrowser(*this, "indeterminate", "false");
        }
        nodeChanged();
    }

private:
    WAbstractToggleButton& mOwner;
};

/// The text behind the box.
class WAbstractToggleButton::Caption : public Impl::RenderNode {
public:
    explicit Caption(const WAbstractToggleButton& owner) : mOwner(owner) {}

    void describe(Impl::ElementSpec& spec) override {
        spec.tag("span");
        Impl::describeText(spec, mOwner.mText, mOwner.mFormat);
    }

private:
    const WAbstractToggleButton& mOwner;
};

WAbstractToggleButton::WAbstractToggleButton(WContainerWidget* parent)
    : WFormWidget(parent), mInput(std::make_unique<Input>(*this)) {
    mInput->setNodeParent(this);
}

WAbstractToggleButton::WAbstractToggleButton(const WString& text, WContainerWidget* parent)
    : WAbstractToggleButton(parent) {
    setText(text);
}

WAbstractToggleButton::~WAbstractToggleButton() {
    for (Impl::RenderNode* part :
         {static_cast<Impl::RenderNode*>(mInput.get()), static_cast<Impl::RenderNode*>(mCaption.get())})
        if (part) part->setNodeParent(nullptr);
}

void WAbstractToggleButton::captionChanged() {
    if (!mCaption) {
        mCaption = std::make_unique<Caption>(*this);
        mCaption->setNodeParent(this);
    }
    mCaption->nodeChanged();
}

void WAbstractToggleButton::setText(const WString& text) {
    if (text == mText && text.literal() && mText.literal()) return;
    mText = text;
    captionChanged();
}

bool WAbstractToggleButton::setTextFormat(TextFormat format) {
    if (!Impl::readsAs(mText, format)) return false;
    mFormat = format;
    captionChanged();
    return true;
}

void WAbstractToggleButton::setWordWrap(bool wordWrap) {
    mWordWrap = wordWrap;
    nodeChanged();
}

void WAbstractToggleButton::setChecked(bool checked) {
    setState(checked ? Checked : Unchecked);
}

void WAbstractToggleButton::setState(CheckState state) {
    if (mState == state) return;
    mState = state;
    mInput->nodeChanged();
}

WString WAbstractToggleButton::valueText() const {
    return mState == Checked ? "yes" : mState == PartiallyChecked ? "maybe" : "no";
}

void WAbstractToggleButton::setValueText(const WString& value) {
    const std::string text = value.toUTF8();
    setState(text == "yes"                                ? Checked
             : text == "maybe" && supportsIndeterminate() ? PartiallyChecked
                                                          : Unchecked);
}

void WAbstractToggleButton::childNodes(std::vector<Impl::RenderNode*>& children) {
    children.push_back(mInput.get());
    if (mCaption) children.push_back(mCaption.get());
}

const char* WAbstractToggleButton::tag() const {
    return "label";
}
std::string WAbstractToggleButton::inputId() const {
    return "o" + std::to_string(mInput->nodeId());
}

bool WAbstractToggleButton::hasFocus() const {
    const auto* session = Impl::WebSession::current();
    return session && session->focused() == mInput->nodeId();
}

void WAbstractToggleButton::setFocus(bool focus) {
    auto* session = Impl::WebSession::current();
    if (session && (focus || hasFocus())) session->setFocused(focus ? mInput->nodeId() : 0);
}

void WAbstractToggleButton::eventSignalChanged() {
    mInput->nodeChanged();
}

void WAbstractToggleButton::setDisabled(bool disabled) {
    WFormWidget::setDisabled(disabled);
    mInput->nodeChanged();
}

void WAbstractToggleButton::refresh() {
    if (mCaption) mCaption->nodeChanged();
    WFormWidget::refresh();
}

void WAbstractToggleButton::propagateSetEnabled(bool enabled) {
    mInput->nodeChanged();
    WFormWidget::propagateSetEnabled(enabled);
}

// A handler may delete this: everything is looked up before the first one runs.
void WAbstractToggleButton::browserEvent(std::string_view kind, const boost::json::object& event) {
    if (kind != "change") return WFormWidget::browserEvent(kind, event);
    Impl::Renderer* renderer = Impl::Renderer::current();
    const std::uint32_t id = mInput->nodeId();
    const Impl::RenderNode* input = mInput.get();
    if (mState != PartiallyChecked)
        WFormWidget::browserEvent(mState == Checked ? "checked" : "unchecked", event);
    if (!renderer || renderer->find(id) == input) WFormWidget::browserEvent(kind, event);
}

void WAbstractToggleButton::describe(Impl::ElementSpec& spec) {
    WWebWidget::describe(spec);
    spec.styleClass("Wt-toggle");
    if (!mWordWrap) spec.style("white-space", "nowrap");
}

WCheckBox::WCheckBox(WContainerWidget* parent) : WAbstractToggleButton(parent) {}
WCheckBox::WCheckBox(const WString& text, WContainerWidget* parent) : WAbstractToggleButton(text, parent) {}

void WCheckBox::setCheckState(CheckState state) {
    if (state == PartiallyChecked) mTristate = true;
    setState(state);
}

} // namespace Wt
