#include <Wt/WInteractWidget.h>

#include "web/ElementSpec.h"
#include "widgets/EventSignals.h"

namespace Wt {

using Impl::EventSignals;

WInteractWidget::WInteractWidget(WContainerWidget* parent) : WWebWidget(parent) {}
WInteractWidget::~WInteractWidget() = default;

namespace {
EventSignals& made(std::unique_ptr<EventSignals>& signals) {
    if (!signals) signals = std::make_unique<EventSignals>();
    return *signals;
}
} // namespace

EventSignal<WKeyEvent>& WInteractWidget::keyWentDown() {
    return made(mSignals).get<WKeyEvent>("keydown", this);
}
EventSignal<WKeyEvent>& WInteractWidget::keyPressed() {
    return made(mSignals).get<WKeyEvent>("keypress", this);
}
EventSignal<WKeyEvent>& WInteractWidget::keyWentUp() {
    return made(mSignals).get<WKeyEvent>("keyup", this);
}
EventSignal<>& WInteractWidget::enterPressed() {
    return plainSignal("enter");
}
EventSignal<>& WInteractWidget::escapePressed() {
    return plainSignal("escape");
}
EventSignal<WMouseEvent>& WInteractWidget::clicked() {
    return made(mSignals).get<WMouseEvent>("click", this);
}
EventSignal<WMouseEvent>& WInteractWidget::doubleClicked() {
    return made(mSignals).get<WMouseEvent>("dblclick", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseWentDown() {
    return made(mSignals).get<WMouseEvent>("mousedown", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseWentUp() {
    return made(mSignals).get<WMouseEvent>("mouseup", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseWentOver() {
    return made(mSignals).get<WMouseEvent>("mouseover", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseWentOut() {
    return made(mSignals).get<WMouseEvent>("mouseout", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseMoved() {
    return made(mSignals).get<WMouseEvent>("mousemove", this);
}
EventSignal<WMouseEvent>& WInteractWidget::mouseWheel() {
    return made(mSignals).get<WMouseEvent>("wheel", this);
}
EventSignal<>& WInteractWidget::blurred() {
    return plainSignal("blur");
}
EventSignal<>& WInteractWidget::focussed() {
    return plainSignal("focus");
}

EventSignal<>& WInteractWidget::plainSignal(const char* kind) {
    return made(mSignals).get<NoClass>(kind, this);
}

void WInteractWidget::describe(Impl::ElementSpec& spec) {
    WWebWidget::describe(spec);
    describeEvents(spec);
}

bool WInteractWidget::isListened(const char* kind) const {
    const EventSignals::Entry* entry = mSignals ? mSignals->find(kind) : nullptr;
    return entry && std::visit([](const auto& signal) { return signal->isConnected(); }, entry->signal);
}

void WInteractWidget::describeEvents(Impl::ElementSpec& spec) const {
    if (!mSignals) return;
    bool clickable = false;
    for (const auto& [kind, signal] : mSignals->entries())
        std::visit(
            [&, name = kind](const auto& known) {
                if (!known->isConnected()) return;
                spec.listen(name,
                            (known->defaultActionPrevented() ? Impl::ElementSpec::PreventDefault : 0) |
                                (known->propagationPrevented() ? Impl::ElementSpec::StopPropagation : 0));
                const std::string_view text = name;
                clickable |= text == "click" || text == "mouseup" || text == "mousedown";
            },
            signal);
    if (!clickable || !needsKeyboardStop()) return;
    if (!spec.hasAttribute("tabindex")) spec.attribute("tabindex", isEnabled() ? "0" : "-1");
    if (!spec.hasAttribute("role")) spec.attribute("role", "button");
}

// The handler may delete this widget.
void WInteractWidget::browserEvent(std::string_view kind, const boost::json::object& event) {
    const EventSignals::Entry* entry = mSignals ? mSignals->find(kind) : nullptr;
    if (!entry) return WWebWidget::browserEvent(kind, event);
    if (const auto* mouse = std::get_if<std::unique_ptr<EventSignal<WMouseEvent>>>(&entry->signal))
        (*mouse)->emit(WMouseEvent(event));
    else if (const auto* key = std::get_if<std::unique_ptr<EventSignal<WKeyEvent>>>(&entry->signal))
        (*key)->emit(WKeyEvent(event));
    else
        std::get<std::unique_ptr<EventSignal<>>>(entry->signal)->emit();
}

} // namespace Wt
