#include "views/dash/WDashView.h"

#include "views/dash/WDashViewEventList.h"
#include "views/dash/WDashViewSesList.h"

#include <Wt/WGridLayout>

namespace {

// Pixels.
constexpr int kListHeight = 260; // at least
constexpr int kListShare = 36;   // percent of the window, for each of the two
constexpr int kTitleBar = 24;
constexpr int kSpacer = 200;
constexpr int kSpacerMin = 400;

} // namespace

WDashView::WDashView(Wt::WContainerWidget* parent)
    : PageFrame(parent),
      mSessions(new WDashViewSesList(tr("[RSnnn]User Sessions"), WCollapsingContextPanel::ResizableHeight,
                                     heightOf(kListHeight, kListShare))),
      mEvents(new WDashViewEventList(tr("[RSnnn]Events"), WCollapsingContextPanel::ResizableHeight,
                                     heightOf(kListHeight, kListShare))),
      mSesSelection(
          *mSessions, [this] { mSessions->readFromDatabase(); }, [] {}),
      mEventSelection(
          *mEvents, [this] { mEvents->readFromDatabase(); }, [] {}),
      mWatched({InfoMgr_InfoID::Connections, InfoMgr_InfoID::UserSessions, InfoMgr_InfoID::Users,
                InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Transmitters, InfoMgr_InfoID::Alerts}) {
    addStyleClass("mirl-dashboard");
    auto* grid = new Wt::WGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    int row = 0;
    for (WCollapsingContextPanel* list :
         {static_cast<WCollapsingContextPanel*>(mSessions), static_cast<WCollapsingContextPanel*>(mEvents)}) {
        list->setInline(false);
        list->setMinimumSize(Wt::WLength::Auto, kTitleBar);
        list->setOverflow(Wt::WContainerWidget::OverflowHidden);
        grid->addWidget(list, row, 0);
        grid->setRowResizable(row++);
    }
    auto* spacer = new Wt::WContainerWidget;
    spacer->setInline(false);
    spacer->setHeight(kSpacer);
    spacer->setMinimumSize(Wt::WLength::Auto, kSpacerMin);
    grid->addWidget(spacer, row, 0);
    setLayout(grid);
}

void WDashView::refresh() {
    // What the service does not tell as a change would be read for nothing.
    const WatchedKinds::Reading reading(mWatched);
    if (mWatched.haveNews()) readFromDatabase();
    mSessions->refreshDurations();
}

void WDashView::readFromDatabase() {
    mSesSelection.rebuild();
    mEventSelection.rebuild();
}

void WDashView::eventLogClear() {
    mEvents->eventLogClear();
}
