// Editing in the details pane, as far as it is more than the frame's.

#include "frame/OwnAddress.h"
#include "frame/ShowBox.h"
#include "shell/WallClock.h"
#include "views/devices/page/WDevView.h"
#include "views/devices/page/WDevViewDetails.h"
#include "views/devices/tabs/WDevViewSwxNtp.h"

namespace {

constexpr BoxRow kModeWarning{.type = WMsgBox::Warning,
                              .title = "[RSnnn]Master/Slave Mode Change",
                              .buttons = {"[RSnnn]Close"},
                              .maxWidthPx = 400};

} // namespace

void WDevView::saveTab(DevTab tab) {
    save(mDetails->settingsTabOf(tab));
}

void WDevView::saveAddress(DevTab tab) {
    const OwnAddress before;
    saveTab(tab);
    before.tellIfMoved();
}

void WDevView::cancelTab(DevTab tab) {
    cancel(mDetails->settingsTabOf(tab));
}

void WDevView::swxNtpSettingsSaveButtonClickedHandler() {
    saveTab(DevTab::SwxNtp);
    static_cast<WDevViewSwxNtp&>(mDetails->settingsTabOf(DevTab::SwxNtp)).clearStatus();
}

void WDevView::swxModeChangedHandler() {
    contentChangedHandler();
    constexpr std::time_t kWarningPause = 60; // seconds
    const std::time_t now = WallClock_now();
    if (now - mLastModeWarning <= kWarningPause) return;
    mLastModeWarning = now;
    showBox(kModeWarning, tr("[RSnnn]warn about master/slave mode change"));
}
