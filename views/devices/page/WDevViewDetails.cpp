#include "views/devices/page/WDevViewDetails.h"

#include "frame/EmptyText.h"
#include "views/devices/tabs/DevStatusTab.h"
#include "views/devices/tabs/WDevViewRxAttribs.h"
#include "views/devices/tabs/WDevViewRxSettings.h"
#include "views/devices/tabs/WDevViewRxVideo.h"
#include "views/devices/tabs/WDevViewStatus.h"
#include "views/devices/tabs/WDevViewSwxAttribs.h"
#include "views/devices/tabs/WDevViewSwxIpSettings.h"
#include "views/devices/tabs/WDevViewSwxMode.h"
#include "views/devices/tabs/WDevViewSwxNtp.h"
#include "views/devices/tabs/WDevViewSwxPorts.h"
#include "views/devices/tabs/WDevViewTxAttribs.h"
#include "views/devices/tabs/WDevViewTxSesStatus.h"
#include "views/devices/tabs/WDevViewTxSettings.h"
#include "views/devices/tabs/WDevViewUsb.h"
#include "widgets/WSettingsTab.h"

#include <Wt/WStackedWidget>
#include <Wt/WTabWidget>

#include <algorithm>

namespace {

constexpr int kTabMargin = 8; // pixels
constexpr int kNotEditable = -1;

template <class Tab>
Wt::WWidget* make() {
    return new Tab;
}

} // namespace

struct WDevViewDetails::TabRow {
    TabSelect page;
    const char* title;
    Wt::WWidget* (*make)();
    int editable = kNotEditable; // DevEditableTab
};

// clang-format off
const WDevViewDetails::TabRow WDevViewDetails::kTabs[] = {
    {TabSelect::Receiver, "[RSnnn]Attributes", make<WDevViewRxAttribs>, int(DevEditableTab::RxAttribs)},
    {TabSelect::Receiver, "[RSnnn]Settings", make<WDevViewRxSettings>, int(DevEditableTab::RxSettings)},
    {TabSelect::Receiver, "[RSnnn]Status", make<WDevViewRxStatus>},
    {TabSelect::Receiver, "[RSnnn]Video", make<WDevViewRxVideo>},
    {TabSelect::Receiver, "[RSnnn]USB", make<WDevViewRxUsb>},
    {TabSelect::Transmitter, "[RSnnn]Attributes", make<WDevViewTxAttribs>, int(DevEditableTab::TxAttribs)},
    {TabSelect::Transmitter, "[RSnnn]Settings", make<WDevViewTxSettings>, int(DevEditableTab::TxSettings)},
    {TabSelect::Transmitter, "[RSnnn]Status", make<WDevViewTxStatus>},
    {TabSelect::Transmitter, "[RSnnn]Sessions", make<WDevViewTxSesStatus>},
    {TabSelect::Transmitter, "[RSnnn]USB", make<WDevViewTxUsb>},
    {TabSelect::Switch, "[RSnnn]Mode", make<WDevViewSwxMode>, int(DevEditableTab::SwxMode)},
    {TabSelect::Switch, "[RSnnn]Attributes", make<WDevViewSwxAttribs>, int(DevEditableTab::SwxAttribs)},
    {TabSelect::Switch, "[RSnnn]IPv4", make<WDevViewSwxIpV4Settings>, int(DevEditableTab::SwxIpV4Settings)},
    {TabSelect::Switch, "[RSnnn]IPv6", make<WDevViewSwxIpV6Settings>, int(DevEditableTab::SwxIpV6Settings)},
    {TabSelect::Switch, "[RSnnn]NTP", make<WDevViewSwxNtp>, int(DevEditableTab::SwxNtpSettings)},
    {TabSelect::Switch, "[RSnnn]Status", make<WDevViewSwxStatus>},
    {TabSelect::Switch, "[RSnnn]Ports", make<WDevViewSwxPorts>},
};
// clang-format on

WDevViewDetails::WDevViewDetails(const Wt::WString& title, int height, Wt::WTableView* list,
                                 Wt::WContainerWidget* parent)
    : WCollapsingContextPanel(title, FixedHeight, height, parent), mStack(new Wt::WStackedWidget) {
    for (Wt::WTabWidget*& page : mPages) {
        page = new Wt::WTabWidget;
        page->contentsStack()->setTabIndex(0); // pages without fields scroll by keyboard too
        page->setStyleClass("mirl-details-tab");
        mStack->addWidget(page);
    }
    emptyText(*mPages[0], tr("devices.details.empty"));
    for (const TabRow& row : kTabs) addTab(row, list);
    mStack->setOverflow(Wt::WContainerWidget::OverflowAuto);
    setContent(mStack, 1, Wt::AlignJustify);
}

void WDevViewDetails::addTab(const TabRow& row, Wt::WTableView* list) {
    Wt::WWidget* tab = row.make();
    tab->setMargin(Wt::WLength(kTabMargin));
    Wt::WMenuItem* item = tabWidget(row.page)->addTab(tab, tr(row.title), Wt::WTabWidget::LazyLoading);
    if (row.editable == kNotEditable) return;
    auto* settings = static_cast<WSettingsTab*>(tab);
    settings->registerDetailsMenuItem(item);
    settings->registerTableView(list);
    mEditable[static_cast<std::size_t>(row.editable)] = settings;
}

void WDevViewDetails::selectTab(TabSelect page) {
    mStack->setCurrentIndex(static_cast<int>(page));
}

WDevViewDetails::TabSelect WDevViewDetails::currentTab() {
    return static_cast<TabSelect>(mStack->currentIndex());
}

Wt::WWidget* WDevViewDetails::currentTabWidget() {
    Wt::WTabWidget* page = tabWidget(currentTab());
    return page->count() > 0 ? page->currentWidget() : nullptr;
}

WSettingsTab* WDevViewDetails::currentEditableTab() {
    return dynamic_cast<WSettingsTab*>(currentTabWidget());
}

bool WDevViewDetails::hasChanged() {
    return std::any_of(mEditable.begin(), mEditable.end(),
                       [](const WSettingsTab* tab) { return tab && tab->hasChanged(); });
}

void WDevViewDetails::readFromDatabase(bool force, const std::vector<unsigned int>& indexes, bool cancelled) {
    Wt::WWidget* tab = currentTabWidget();
    if (auto* settings = dynamic_cast<WSettingsTab*>(tab))
        settings->readFromDatabase(force, indexes, cancelled);
    else if (auto* status = dynamic_cast<DevStatusTab*>(tab))
        status->readFromDatabase(indexes);
}
