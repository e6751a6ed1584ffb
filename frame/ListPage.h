#pragma once

#include "db/WatchedKinds.h"
#include "frame/EditingPage.h"
#include "frame/KeptSelection.h"

#include <initializer_list>
#include <optional>

/// A page with a list of records, actions on the selected ones, and their details below.
class ListPage : public EditingPage {
public:
    /// Refreshes what is new; nothing while there are unsaved edits. `forceDetails`: read the details in any case.
    /// `forceList`: rebuild the list in any case, also over unsaved edits.
    virtual void readFromDatabase(bool forceDetails, bool forceList);

    std::string placeInAddress() const override;
    void goTo(std::string_view place) override;

protected:
    /// Of the window's height for a list above its details, in percent.
    static constexpr int kListShare = 36;

    /// How records are told in words.
    struct RecordWords {
        const char* counted; // message key of several: "{1} Receivers"
        std::vector<int> columns{
            1}; // of the list: the name, then what stands behind it in the heading of the details
    };

    /// `watched`: kinds of data that the list shows; none: the list is rebuilt at every refresh.
    ListPage(Wt::WContainerWidget* parent, std::initializer_list<InfoMgr_InfoID> watched);

    /// Before the first refresh. `rebuild` fills the list anew, `selectionChanged` follows the user's selections.
    void setList(ObjListParts& list, KeptSelection::Job rebuild, KeptSelection::Job selectionChanged);
    /// Otherwise records are told by column 1, and by their number alone.
    void setWords(RecordWords words) { mWords = std::move(words); }
    /// For words that depend on what is selected.
    virtual const char* countedKey() const { return mWords.counted; }
    /// Whom an action on the selected records reaches, for the question before it. `stateColumn`: of the list, 0 = none.
    Wt::WString hit(int stateColumn = 0) const;
    KeptSelection& selection() { return *mSelection; }
    const KeptSelection& selection() const { return *mSelection; }

    /// Enables actions and shows the details of what is selected.
    virtual void showSelection(bool forceDetails) = 0;
    /// The list is rebuilt though nothing is new: for a list that the last rebuild left incomplete.
    virtual bool listIsDue() const { return false; }

    std::vector<unsigned> chosenRecords() const override { return mSelection->indexes(); }
    Wt::WString chosenInWords() const override;
    void readAgain(bool force) override { readFromDatabase(force, false); }
    void showPartlySaved() override { readFromDatabase(true, true); }
    /// The browser tells of a scrolled list only when it needs rows: whether the edited row is in view is not known
    /// here for certain. It is brought there.
    void afterSave() override { selection().bringIntoView(); }
    void refresh() override;

private:
    void showSubject();

    WatchedKinds mWatched;
    RecordWords mWords{"page.count.records"};
    std::optional<KeptSelection> mSelection;
};
