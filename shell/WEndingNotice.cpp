#include "shell/WEndingNotice.h"

#include <Wt/WPushButton>
#include <Wt/WText>
#include <Wt/WTimer>

#include <string>

namespace {

constexpr int kTickMs = 1000;

} // namespace

WEndingNotice::WEndingNotice() {
    setModal(false); // above a modal one, too, its button can be reached
    setTitleBarEnabled(false);
    addStyleClass("mirl-ending-notice");
    auto* sentence = new Wt::WText(tr("[RSnnn]Nothing has been done for a while. You will be logged out in:"),
                                   Wt::PlainText, contents());
    sentence->setAttributeValue("role", "status");
    mSeconds = new Wt::WText(contents());
    mSeconds->setTextFormat(Wt::PlainText);
    mSeconds->setStyleClass("mirl-ending-seconds");
    mSeconds->setAttributeValue("role", "timer"); // which is not read out at every change
    auto* stay = new Wt::WPushButton(tr("[RSnnn]Stay logged in"), contents());
    stay->clicked().connect(this,
                            &WEndingNotice::hide); // being activity, it ends the notice as any other does
    auto* timer = new Wt::WTimer(this);
    timer->setInterval(kTickMs);
    timer->start(); // its ticks are events, at which the session looks how much time is left
    show();
}

void WEndingNotice::setSecondsLeft(unsigned seconds) {
    mSeconds->setText(Wt::WString::fromUTF8(std::to_string(seconds) + " s"));
}
