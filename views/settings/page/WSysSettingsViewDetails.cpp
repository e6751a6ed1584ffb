#include "views/settings/page/WSysSettingsViewDetails.h"

#include "frame/RowsInOrder.h"
#include "views/settings/page/WSysSettingsView.h"
#include "views/settings/tabs/WSysSettingsViewDefaults.h"
#include "views/settings/tabs/WSysSettingsViewEvents.h"
#include "views/settings/tabs/WSysSettingsViewMgr.h"
#include "views/settings/tabs/WSysSettingsViewMirl.h"
#include "views/settings/tabs/WSysSettingsViewOsd.h"
#include "views/settings/tabs/WSysSettingsViewOther.h"
#include "views/settings/tabs/WSysSettingsViewRap.h"

#include <Wt/WTabWidget>

namespace {

constexpr int kHeightPx = 510;

using View = WSysSettingsView;

// clang-format off
constexpr DetailsTabRow<View, SysTab> kTabs[] = {
    {SysTab::Mgr, 0, "[RSnnn]Manager", makeTab<WSysSettingsViewMgr>,
     &View::mgrSaveButtonClickedHandler, &View::mgrCancelButtonClickedHandler},
    {SysTab::Mirl, 0, "[RSnnn]MIRL", makeTab<WSysSettingsViewMirl>,
     &View::mirlSaveButtonClickedHandler, &View::mirlCancelButtonClickedHandler},
    {SysTab::Osd, 0, "[RSnnn]OSD", makeTab<WSysSettingsViewOsd>,
     &View::osdSaveButtonClickedHandler, &View::osdCancelButtonClickedHandler},
    {SysTab::Events, 0, "[RSnnn]Events", makeTab<WSysSettingsViewEvents>,
     &View::eventsSaveButtonClickedHandler, &View::eventsCancelButtonClickedHandler},
    {SysTab::Defaults, 0, "[RSnnn]Defaults", makeTab<WSysSettingsViewDefaults>,
     &View::cfgDefaultsSaveButtonClickedHandler, &View::cfgDefaultsCancelButtonClickedHandler},
    {SysTab::Other, 0, "[RSnnn]Other", makeTab<WSysSettingsViewOther>,
     &View::otherSaveButtonClickedHandler, &View::otherCancelButtonClickedHandler},
    {SysTab::Rap, 0, "SystemSettings.Rap", makeTab<WSysSettingsViewRap>,
     &View::rapSaveButtonClickedHandler, &View::rapCancelButtonClickedHandler},
};
// clang-format on
static_assert(rowsInOrder(kTabs));

} // namespace

WSysSettingsViewDetails::WSysSettingsViewDetails(WSysSettingsView* view)
    : DetailsTabs(tr("[RSnnn]Settings"), FixedHeight, kHeightPx, 1) {
    addTabs(view, kTabs, nullptr);
    tabWidget(0)->currentChanged().connect(view, &WSysSettingsView::tabChangedHandler);
}

WSysSettingsViewEvents& WSysSettingsViewDetails::eventsTab() const {
    return dynamic_cast<WSysSettingsViewEvents&>(settingsTabOf(SysTab::Events));
}
