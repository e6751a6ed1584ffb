#pragma once

#include "frame/PageFrame.h"

#include <vector>

class DetailsTabs;
class WSettingsTab;

/// A page with a details pane whose tabs are edited, saved and thrown away alike.
class EditingPage : public PageFrame {
public:
    /// A field of the tab on show was edited: the actions wait for Save or Cancel, and Save is enabled when what was
    /// entered is valid: all of it for one record, any of it for several.
    virtual void contentChangedHandler();

    /// Writes the tab to the chosen records and shows what the service refused. True: nothing failed. Otherwise the
    /// edits stay, to be saved again, and what is stored is told beside them.
    bool save(WSettingsTab& tab);
    /// Throws the tab's edits away.
    void cancel(WSettingsTab& tab);

    std::string placeInAddress() const override;
    void goTo(std::string_view place) override;

protected:
    using PageFrame::PageFrame;

    /// Not owned; before any edit.
    void setDetails(DetailsTabs* details) { mDetails = details; }
    DetailsTabs* detailsTabs() const { return mDetails; }

    /// Records that a save writes. A page of singletons chooses none and edits all the same.
    virtual std::vector<unsigned> chosenRecords() const = 0;
    /// The same in words: a name, or how many of what ("48 Receivers"). Empty where there is nothing to choose.
    virtual Wt::WString chosenInWords() const { return Wt::WString(); }
    virtual bool editsSingletons() const { return false; }
    /// Reads the page when edits have ended. `force`: also the details, whatever the service says of news.
    virtual void readAgain(bool force) = 0;
    /// A save was refused for some records: shows what became of the others, over the edits.
    virtual void showPartlySaved() {}
    /// While a tab has edits: has it tell what others have stored there since.
    void tellWhatChanged();
    /// Behind the reading that follows a save.
    virtual void afterSave() {}

private:
    void keepEdits(WSettingsTab& tab, const std::vector<unsigned>& records, bool serviceAnswers);
    static void endEdits(WSettingsTab& tab);
    void saySaved(WSettingsTab& tab) const;

    DetailsTabs* mDetails = nullptr;
};
