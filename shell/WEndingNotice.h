#pragma once

#include <Wt/WDialog>

namespace Wt {
class WText;
}

/// Says that the session is about to end for want of activity, and counts down. It takes no focus and covers no field;
/// any action of the user ends it, its button is one.
class WEndingNotice : public Wt::WDialog {
public:
    WEndingNotice();

    /// While it stands it makes an event a second, so that the session can tell it.
    void setSecondsLeft(unsigned seconds);

private:
    Wt::WText* mSeconds;
};
