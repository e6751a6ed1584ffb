#pragma once

#include <Wt/WCompositeWidget.h>
#include <Wt/WEvent.h>
#include <Wt/WSignal.h>

namespace Wt {

class WImage;

/// Two icons, one of which shows: state 0 or 1.
class WIconPair : public WCompositeWidget {
public:
    /// `clickIsSwitch`: a click changes the state.
    WIconPair(const std::string& icon1Ref, const std::string& icon2Ref, bool clickIsSwitch = true,
              WContainerWidget* parent = nullptr);

    void setState(int num);
    void showIcon1() { setState(0); }
    void showIcon2() { setState(1); }

    int state() const { return mState; }
    WImage* icon1() const { return mIcons[0]; }
    WImage* icon2() const { return mIcons[1]; }

    EventSignal<WMouseEvent>& icon1Clicked();
    EventSignal<WMouseEvent>& icon2Clicked();

private:
    WImage* mIcons[2];
    int mState = 0;
};

} // namespace Wt
