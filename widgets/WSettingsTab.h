#pragma once

#include "db/WatchedKinds.h"
#include "widgets/WSettingsTabBase.h"

#include <Wt/WSignal>

#include <initializer_list>

namespace Wt {
class WHBoxLayout;
class WLayout;
class WPushButton;
class WText;
class WVBoxLayout;
} // namespace Wt

class WSettingsTable;

/// A tab of one or more settings tables side by side, with Cancel and Save below. Both buttons are disabled
/// at first; the view that owns the tab connects and enables them.
class WSettingsTab : public WSettingsTabBase {
public:
    /// `watched`: kinds of data that the tab shows. Without any, every refresh reads.
    WSettingsTab(Wt::WContainerWidget* parent, ChangeTracker::SubsectionId id,
                 std::initializer_list<InfoMgr_InfoID> watched);

    /// Nothing while a field has the focus. Otherwise reads when the change status is to be ignored, when
    /// forced, when these are other records than before, when the last read failed, or when watched data is
    /// new. All tables together ask once for what they share.
    virtual void readFromDatabase(bool ignoreChangeStatus, const std::vector<unsigned>& indexes, bool force);
    /// Every table, also behind a failure; 1 if any failed.
    unsigned writeToDatabase(const std::vector<unsigned>& indexes, std::vector<std::string>& errors) override;
    /// The tab has edits: tells beside them what was stored by others since they began, if the watched kinds have news.
    void tellWhatChanged(const std::vector<unsigned>& indexes);
    /// A save failed: tells beside the edits what is stored.
    void tellWhatIsStored(const std::vector<unsigned>& indexes);
    void enableButtons(bool save, bool cancel);

    virtual bool isAllValid();
    /// Of at least one table.
    virtual bool isAnyValid();
    bool anyWidgetHasFocus() const;
    Wt::WPushButton* saveButton() const { return mSaveButton; }
    Wt::WPushButton* cancelButton() const { return mCancelButton; }

    /// A sentence beside the buttons that screen readers read out, until the next edit, other records or another
    /// sentence. Empty: none.
    void say(const Wt::WString& sentence);
    /// The focus goes to the tab's label, unless a field has it: a button that is disabled while it has the focus loses
    /// it. Not to a field, which is not refreshed as long as it has the focus.
    void keepFocus();

    /// The user changed a field of a table.
    Wt::Signal<>& contentChanged() { return mContentChangedSignal; }

protected:
    /// Takes ownership; read and stored in the order given.
    void setTables(std::initializer_list<WSettingsTable*> tables);
    /// Between the tables and the buttons. Takes ownership; behind setTables().
    void addBelowTables(Wt::WWidget* widget);
    /// For a tab that is more than tables, or something else: it reads, stores and judges what
    /// is its own. Takes ownership; once.
    void setContent(Wt::WLayout* content);
    virtual void readTables(const std::vector<unsigned>& indexes, bool force);

private:
    /// Enter saves when Save would.
    void enterHandler();

    WatchedKinds mWatched;
    WatchedKinds mComparedWith;   // the same kinds, as far as edits were compared with them
    std::vector<unsigned> mShown; // indexes read last
    bool mReadFailed = false;
    std::vector<WSettingsTable*> mTables; // owned by the layout's container
    Wt::WVBoxLayout* mVBoxLayout;
    Wt::WHBoxLayout* mHBoxLayout;
    Wt::WPushButton* mCancelButton;
    Wt::WPushButton* mSaveButton;
    Wt::WText* mSentence;
    Wt::Signal<> mContentChangedSignal;
};
