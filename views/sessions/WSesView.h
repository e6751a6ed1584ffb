#pragma once

#include "frame/ListPage.h"

class WNavAccordionStdCell;
class WSesViewList;

namespace Wt {
class WTimer;
}

enum class SesAction { Connect, Disconnect };
enum class SesTab { Attributes };

/// The Sessions tab: who is connected to what, and the two actions that join and part them.
class WSesView : public ListPage {
public:
    explicit WSesView(Wt::WContainerWidget* parent = nullptr);

    using ListPage::readFromDatabase;
    /// Durations go on; list and details are read anew if there is news of them, or with `force`.
    virtual void readFromDatabase(bool force);

    virtual void estabSesActionButtonClicked();
    virtual void discSesActionButtonClicked();
    virtual void sesListSelectionChangedHandler();

    WSesViewList* list() const { return mList; }
    DetailsTabs* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(SesAction action) const;

protected:
    void showSelection(bool forceDetails) override;

private:
    WSesViewList* mList;
    DetailsTabs* mDetails;
    Wt::WTimer* mEndTimer; // runs while sessions that were disconnected go
};
