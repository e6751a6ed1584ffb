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

/// Pixels; 0 when the window's height is not known. As the window was when the page was loaded.
int shareOfWindow(int percent) {
    const auto* application = Wt::WApplication::instance();
    return application ? application->environment().screenHeight() * percent / 100 : 0;
}

} // namespace

PageFrame::PageFrame(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mRefreshTimer(new Wt::WTimer(this)) {
    mRefreshTimer->setInterval(kRefreshInterval);
    mRefreshTimer->timeout().connect(this, &PageFrame::refreshTimerTimeout);
}

void PageFrame::place(ActionColumn* actions, std::initializer_list<Pane> panes) {
    mActions = actions;
    mVBox = new Wt::WVBoxLayout;
    for (const Pane& pane : panes) {
        if (pane.height) pane.widget->setHeight(std::max(pane.height, shareOfWindow(pane.share)));
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
