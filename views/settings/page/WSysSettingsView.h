#pragma once

#include "frame/EditingPage.h"
#include "views/settings/page/SysTab.h"

class WNavAccordionStdCell;
class WSysSettingsViewDetails;

/// The System Settings tab: the Switch's own settings, files that keep all of them, factory settings.
class WSysSettingsView : public EditingPage {
public:
    explicit WSysSettingsView(Wt::WContainerWidget* parent = nullptr);

    /// Reads the tab on show, unless a tab has unsaved edits and `unconditional` is false.
    virtual void readFromDatabase(bool unconditional);
    /// All four are enabled exactly while nothing of the page is unsaved.
    virtual void updateNavActionButtons();

    virtual void saveSettingsButtonClickedHandler();
    virtual void loadSettingsButtonClickedHandler();
    virtual void fullRestoreFactDefaultsButtonClickedHandler();
    virtual void partialRestoreFactDefaultsButtonClickedHandler();

    virtual void tabChangedHandler();

    virtual void mgrSaveButtonClickedHandler() { saveTab(SysTab::Mgr); }
    virtual void mgrCancelButtonClickedHandler() { cancelTab(SysTab::Mgr); }
    /// The running session's time limit follows at once.
    virtual void mirlSaveButtonClickedHandler();
    virtual void mirlCancelButtonClickedHandler() { cancelTab(SysTab::Mirl); }
    virtual void osdSaveButtonClickedHandler() { saveTab(SysTab::Osd); }
    virtual void osdCancelButtonClickedHandler() { cancelTab(SysTab::Osd); }
    virtual void eventsSaveButtonClickedHandler();
    virtual void eventsCancelButtonClickedHandler();
    virtual void cfgDefaultsSaveButtonClickedHandler() { saveTab(SysTab::Defaults); }
    virtual void cfgDefaultsCancelButtonClickedHandler() { cancelTab(SysTab::Defaults); }
    virtual void otherSaveButtonClickedHandler() { saveTab(SysTab::Other); }
    virtual void otherCancelButtonClickedHandler() { cancelTab(SysTab::Other); }
    virtual void rapSaveButtonClickedHandler() { saveTab(SysTab::Rap); }
    virtual void rapCancelButtonClickedHandler() { cancelTab(SysTab::Rap); }

    /// Events were moved between the lists.
    virtual void eventsMovedHandler();

    WSysSettingsViewDetails* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(SysAction action) const;

protected:
    std::vector<unsigned> chosenRecords() const override { return {}; }
    bool editsSingletons() const override { return true; }
    void readAgain(bool force) override;
    void refresh() override { readFromDatabase(false); }

private:
    bool saveTab(SysTab tab);
    void cancelTab(SysTab tab);

    WSysSettingsViewDetails* mDetails;
};
