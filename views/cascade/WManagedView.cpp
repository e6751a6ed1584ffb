#include "views/cascade/WManagedView.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/RowsInOrder.h"
#include "frame/ShowBox.h"
#include "views/cascade/OneSwitchActions.h"
#include "views/cascade/WManagedViewSwxModeTable.h"
#include "widgets/WManagementMode.h"
#include "widgets/WSwxCombinedMode.h"

namespace {

constexpr BoxRow kSetUnmanaged{.type = WMsgBox::Warning,
                               .title = "[RSnnn]Set Unmanaged",
                               .buttons = {"[RSnnn]Close"},
                               .maxWidthPx = 400};

} // namespace

WManagedView::WManagedView(Wt::WContainerWidget* parent)
    : WManagedView(new WManagedViewSwxModeTable(SwxPlace::read()), parent) {}

WManagedView::WManagedView(WManagedViewSwxModeTable* mode, Wt::WContainerWidget* parent)
    : OneSwitchPage({"[RSnnn]managed mode explanation", "[RSnnn]Managed Mode Settings and Status",
                     "[RSnnn]Managed mode change. Rebooting now."},
                    mode, parent),
      mMode(mode) {
    actions()->addActions(this, kOneSwitchActions);
    actions()->addActions(this, kPromoteAction);
    if (WSwxCombinedMode* combined = mMode->combinedMode())
        combined->changed().connect(this, &WManagedView::modeChangedHandler);
    mMode->management()->changed().connect(this, &WManagedView::modeChangedHandler);
}

bool WManagedView::modeIsChanged() const {
    return mMode->becomesUnmanagedMaster();
}

void WManagedView::modeChangedHandler() {
    showBox(kSetUnmanaged,
            tr(Db::db.thisSwxIsMaster() ? "managed.master.settings.warn.change.to.unmanaged"
                                        : "managed.slave.settings.warn.change.to.unmanaged.master"));
}
