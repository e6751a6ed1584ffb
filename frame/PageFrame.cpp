#include "frame/PageFrame.h"

#include "frame/ActionColumn.h"
#include "frame/FoldedPane.h"
#include "shell/MirlApplication.h"

#include <Wt/WEnvironment>
#include <Wt/WHBoxLayout>
#include <Wt/WTimer>
#include <Wt/WVBoxLayout>

#include <algorithm>

namespace {

constexpr int kRefreshInterval = 5000; // milliseconds

} // namespace

PageFrame::PageFrame(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mRefreshTimer(new Wt::WTimer(this)) {
    mRefreshTimer->setInterval(kRefreshInterval);
    mRefreshTimer->timeout().connect(this, &PageFrame::refreshTimerTimeout);
}

int PageFrame::heightOf(int leastPx, int share) {
    const auto* application = Wt::WApplication::instance();
    return application ? std::max(leastPx, application->environment().screenHeight() * share / 100) : leastPx;
}

void PageFrame::place(ActionColumn* actions, std::initializer_list<Pane> panes) {
    mActions = actions;
    mVBox = new Wt::WVBoxLayout;
    for (const Pane& pane : panes) {
        if (pane.height) pane.widget->setHeight(heightOf(pane.height, pane.share));
        if (pane.minHeight) pane.widget->setMinimumSize(Wt::WLength::Auto, pane.minHeight);
        mVBox->addWidget(pane.widget, pane.stretch);
    }
    for (int divider = 0; divider + 1 < static_cast<int>(panes.size()); ++divider)
        mVBox->setResizable(divider);
    mHBox = new Wt::WHBoxLayout;
    mHBox->addWidget(actions);
    mHBox->addLayout(mVBox, 1);
    mHBox->setResizable(0);
    setLayout(mHBox);
}

void PageFrame::giveRoomWhenFolded(WCollapsingContextPanel& pane, Wt::WWidget& above) {
    ::giveRoomWhenFolded(pane, *mVBox, above);
}

void PageFrame::enableAutoRefresh() {
    if (!mRefreshTimer->isActive()) mRefreshTimer->start();
}

void PageFrame::disableAutoRefresh() {
    if (mRefreshTimer->isActive()) mRefreshTimer->stop();
}

void PageFrame::refreshTimerTimeout() {
    MirlApplication* application = MirlApplication::current();
    if (!application) return;
    Wt::WApplication::UpdateLock lock(application);
    if (lock) refresh();
}
