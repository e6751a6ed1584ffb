#pragma once

#include <Wt/WEvent.h>
#include <Wt/WSignal.h>
#include <Wt/WWebWidget.h>

namespace Wt {

namespace Impl {
class EventSignals;
}

/// A widget that takes part in mouse and key events. Signals are made when they are asked for.
class WInteractWidget : public WWebWidget {
public:
    explicit WInteractWidget(WContainerWidget* parent = nullptr);
    ~WInteractWidget() override;

    EventSignal<WKeyEvent>& keyWentDown();
    EventSignal<WKeyEvent>& keyPressed();
    EventSignal<WKeyEvent>& keyWentUp();
    EventSignal<>& enterPressed();
    EventSignal<>& escapePressed();
    EventSignal<WMouseEvent>& clicked();
    EventSignal<WMouseEvent>& doubleClicked();
    EventSignal<WMouseEvent>& mouseWentDown();
    EventSignal<WMouseEvent>& mouseWentUp();
    EventSignal<WMouseEvent>& mouseWentOver();
    EventSignal<WMouseEvent>& mouseWentOut();
    EventSignal<WMouseEvent>& mouseMoved();
    EventSignal<WMouseEvent>& mouseWheel();
    /// The focus came or went; the widget must be able to have it.
    EventSignal<>& blurred();
    EventSignal<>& focussed();

    void browserEvent(std::string_view kind, const boost::json::object& event) override;

protected:
    void describe(Impl::ElementSpec& spec) override;
    /// The events that somebody is connected to.
    void describeEvents(Impl::ElementSpec& spec) const;
    bool isListened(const char* kind) const;
    /// The event leads to a keyboard stop: focus ring, role and Enter or space as a click. False for elements
    /// that have that by nature.
    virtual bool needsKeyboardStop() const { return true; }
    /// `kind`: name of the event in the page protocol, a literal.
    EventSignal<>& plainSignal(const char* kind);

private:
    std::unique_ptr<Impl::EventSignals> mSignals;
};

} // namespace Wt
