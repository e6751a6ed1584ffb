#pragma once

#include "frame/TwoListMover.h"
#include "frame/WNavAccordionStdCell.h"
#include "tests/views/PageTest.h"
#include "views/settings/page/WSysSettingsView.h"
#include "views/settings/page/WSysSettingsViewDetails.h"
#include "views/settings/tabs/WSysSettingsViewEvents.h"

/// The System Settings tab of an administrator, on the demo installation of a service of its own.
class SettingsPage : public PageTest {
protected:
    SettingsPage() : view(mainTab<WSysSettingsView>()) {
        setDetails(view->details());
        view->readFromDatabase(true);
    }

    void clickAction(SysAction action) { click(view->actionCell(action)->actionButton()); }
    void tick() { view->refreshTimerTimeout(); }
    /// X for each enabled action, . for the others.
    std::string actions() const {
        std::string enabled;
        for (const SysAction action :
             {SysAction::Save, SysAction::Load, SysAction::RestoreFull, SysAction::RestorePartial})
            enabled += view->actionCell(action)->actionButton()->isDisabled() ? '.' : 'X';
        return enabled;
    }
    /// "S" and "C" for what is enabled of the tab's Save and Cancel.
    std::string buttons() const {
        return std::string(tab().saveButton()->isDisabled() ? "." : "S") +
               (tab().cancelButton()->isDisabled() ? "." : "C");
    }
    TwoListMover& events() const { return *view->details()->eventsTab().eventLists(); }

    WSysSettingsView* view;
};
