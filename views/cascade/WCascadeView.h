#pragma once

#include "frame/PageFrame.h"
#include "views/cascade/CascadeActions.h"

class WCascadeViewDetails;
class WNavAccordionStdCell;

/// The Cascade tab: two Switches that stand in for one another. The page asks for changes and follows what becomes of
/// them in the database.
class WCascadeView : public PageFrame {
public:
    explicit WCascadeView(Wt::WContainerWidget* parent = nullptr);

    /// What cannot be read leaves the actions as they are.
    virtual void readFromDatabase();
    /// No action until the next refresh tells which are allowed.
    virtual void contentChangedHandler();

    virtual void linkPeerButtonClickedHandler();
    virtual void unlinkPeerButtonClickedHandler();
    virtual void roleSwitchButtonClickedHandler();
    virtual void promoteButtonClickedHandler();

    WCascadeViewDetails* details() const { return mDetails; }
    WNavAccordionStdCell* actionCell(CascadeAction action) const;

protected:
    void refresh() override { readFromDatabase(); }

private:
    void enable(CascadeAction action, bool enabled);

    WCascadeViewDetails* mDetails;
};
