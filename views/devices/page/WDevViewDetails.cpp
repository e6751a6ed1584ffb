#include "views/devices/page/WDevViewDetails.h"

#include "frame/EmptyText.h"
#include "frame/RowsInOrder.h"
#include "views/devices/page/WDevView.h"
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

#include <Wt/WTabWidget>

namespace {

constexpr int kPages = 4; // of DevDetailsPage

constexpr auto Rx = DevDetailsPage::Receiver;
constexpr auto Tx = DevDetailsPage::Transmitter;
constexpr auto Swx = DevDetailsPage::Switch;

using View = WDevView;

// clang-format off
constexpr DetailsTabRow<View, DevTab, DevDetailsPage> kTabs[] = {
    {DevTab::RxAttribs, Rx, "[RSnnn]Attributes", makeTab<WDevViewRxAttribs>,
     &View::rxAttribsSaveButtonClickedHandler, &View::rxAttribsCancelButtonClickedHandler},
    {DevTab::RxSettings, Rx, "[RSnnn]Settings", makeTab<WDevViewRxSettings>,
     &View::rxSettingsSaveButtonClickedHandler, &View::rxSettingsCancelButtonClickedHandler},
    {DevTab::RxStatus, Rx, "[RSnnn]Status", makeTab<WDevViewRxStatus>},
    {DevTab::RxVideo, Rx, "[RSnnn]Video", makeTab<WDevViewRxVideo>},
    {DevTab::RxUsb, Rx, "[RSnnn]USB", makeTab<WDevViewRxUsb>},
    {DevTab::TxAttribs, Tx, "[RSnnn]Attributes", makeTab<WDevViewTxAttribs>,
     &View::txAttribsSaveButtonClickedHandler, &View::txAttribsCancelButtonClickedHandler},
    {DevTab::TxSettings, Tx, "[RSnnn]Settings", makeTab<WDevViewTxSettings>,
     &View::txSettingsSaveButtonClickedHandler, &View::txSettingsCancelButtonClickedHandler},
    {DevTab::TxStatus, Tx, "[RSnnn]Status", makeTab<WDevViewTxStatus>},
    {DevTab::TxSessions, Tx, "[RSnnn]Sessions", makeTab<WDevViewTxSesStatus>},
    {DevTab::TxUsb, Tx, "[RSnnn]USB", makeTab<WDevViewTxUsb>},
    {DevTab::SwxMode, Swx, "[RSnnn]Mode", makeTab<WDevViewSwxMode>,
     &View::swxModeSaveButtonClickedHandler, &View::swxModeCancelButtonClickedHandler,
     &View::swxModeChangedHandler},
    {DevTab::SwxAttribs, Swx, "[RSnnn]Attributes", makeTab<WDevViewSwxAttribs>,
     &View::swxAttribsSaveButtonClickedHandler, &View::swxAttribsCancelButtonClickedHandler},
    {DevTab::SwxIpV4Settings, Swx, "[RSnnn]IPv4", makeTab<WDevViewSwxIpV4Settings>,
     &View::swxIpV4SettingsSaveButtonClickedHandler, &View::swxIpV4SettingsCancelButtonClickedHandler},
    {DevTab::SwxIpV6Settings, Swx, "[RSnnn]IPv6", makeTab<WDevViewSwxIpV6Settings>,
     &View::swxIpV6SettingsSaveButtonClickedHandler, &View::swxIpV6SettingsCancelButtonClickedHandler},
    {DevTab::SwxNtp, Swx, "[RSnnn]NTP", makeTab<WDevViewSwxNtp>,
     &View::swxNtpSettingsSaveButtonClickedHandler, &View::swxNtpSettingsCancelButtonClickedHandler},
    {DevTab::SwxStatus, Swx, "[RSnnn]Status", makeTab<WDevViewSwxStatus>},
    {DevTab::SwxPorts, Swx, "[RSnnn]Ports", makeTab<WDevViewSwxPorts>},
};
// clang-format on
static_assert(rowsInOrder(kTabs));

} // namespace

WDevViewDetails::WDevViewDetails(const Wt::WString& title, int height, WDevView* view, ObjListParts* list)
    : DetailsTabs(title, FixedHeight, height, kPages) {
    addTabs(view, kTabs, list);
    for (const TabSelect page : {Rx, Tx, Swx})
        tabWidget(static_cast<int>(page))
            ->currentChanged()
            .connect(view, &WDevView::detailsTabChangedHandler);
    emptyText(*tabWidget(static_cast<int>(TabSelect::Empty)), tr("devices.details.empty"));
}
