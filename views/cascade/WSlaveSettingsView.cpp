#include "views/cascade/WSlaveSettingsView.h"

#include "db/Db.h"
#include "frame/ShowBox.h"
#include "views/cascade/OneSwitchActions.h"
#include "views/cascade/WSlaveSettingsViewSwxModeTable.h"
#include "widgets/Selectors.h"

#include <Wt/WText>

namespace {

constexpr BoxRow kChangeToMaster{.type = WMsgBox::Warning,
                                 .title = "[RSnnn]Change to Master",
                                 .buttons = {"[RSnnn]Close"},
                                 .maxWidthPx = 400};

} // namespace

WSlaveSettingsView::WSlaveSettingsView(Wt::WContainerWidget* parent)
    : WSlaveSettingsView(new WSlaveSettingsViewSwxModeTable, parent) {}

WSlaveSettingsView::WSlaveSettingsView(WSlaveSettingsViewSwxModeTable* mode, Wt::WContainerWidget* parent)
    : OneSwitchPage({"[RSnnn]slave mode explanation", "[RSnnn]Switch Mode",
                     "[RSnnn]Master/slave mode change. Rebooting now."},
                    mode, parent),
      mMode(mode) {
    actions()->addActions(this, kOneSwitchActions);
    mMode->mode()->changed().connect(this, &WSlaveSettingsView::modeChangedHandler);
}

bool WSlaveSettingsView::modeIsChanged() const {
    return mMode->mode()->hasChangedContent() && !mMode->mode()->isDisabled();
}

void WSlaveSettingsView::setDependentWidgets() {
    explanation()->setText(tr(mMode->saysMaster() ? "slaveSwtichSettings.masterMode.explanation"
                                                  : "[RSnnn]slave mode explanation"));
    // Nothing but this leads on where the controller is gone: a backup cannot choose to be a master.
    const bool backup = Db::db.thisSwxIsBackupCascadeController();
    if (backup && !mOffersPromote) {
        actions()->addActions(static_cast<OneSwitchPage*>(this), kPromoteAction);
        mOffersPromote = true;
    }
    if (mOffersPromote) actions()->enable(static_cast<std::size_t>(OneSwitchAction::Promote), backup);
}

void WSlaveSettingsView::modeChangedHandler() {
    if (mMode->saysMaster()) showBox(kChangeToMaster, tr("[RSnnn]warn change to master"));
}
