#pragma once

#include "shell/ChangeTracker.h"

#include <Wt/WContainerWidget>

#include <string>
#include <vector>

namespace Wt {
class WFormWidget;
class WMenuItem;
class WTableView;
class WText;
} // namespace Wt

/// Base of every tab of settings: carries the mark of unsaved edits to the tab's label, the main tab and the
/// list beside the tab, which stays locked while its section has edits: another selection, or a filter that hides the
/// selected row, would leave them without their records.
class WSettingsTabBase : public Wt::WContainerWidget {
public:
    WSettingsTabBase(Wt::WContainerWidget* parent, ChangeTracker::SubsectionId id);

    /// The menu entry that stands for this tab, the list beside it, and the list's filter. Not
    /// owned; any may be null.
    void registerDetailsMenuItem(Wt::WMenuItem* item) { mDetailsMenuItem = item; }
    void registerTableView(Wt::WTableView* tableView) { mTableView = tableView; }
    void registerFilterField(Wt::WFormWidget* field) { mFilterField = field; }
    /// Says why the list is locked while it is.
    void registerLockNote(Wt::WText* note) { mLockNote = note; }

    /// Outside a session only the flag is kept.
    void indicateChangedContent(bool changed);
    /// Puts the mark "*" behind the item's text, once, or takes it away.
    void changed(Wt::WMenuItem* item, bool changed);

    bool hasChanged() const { return mChangedContent; }

    /// Stores what the user changed in every record. 0 or 1; `errors` receives what the service refused.
    virtual unsigned writeToDatabase(const std::vector<unsigned>& indexes,
                                     std::vector<std::string>& errors) = 0;

protected:
    void focusLabel();

private:
    void lockList(bool locked);

    Wt::WMenuItem* mDetailsMenuItem = nullptr;
    ChangeTracker::SubsectionId mSubsectionId;
    Wt::WTableView* mTableView = nullptr;
    Wt::WFormWidget* mFilterField = nullptr;
    Wt::WText* mLockNote = nullptr;
    bool mChangedContent = false;
};
