#pragma once

#include "frame/WCollapsingContextPanel.h"

#include <Wt/WTable>

#include <array>

namespace Wt {
class WText;
}

/// The fields of one event.
class WEventViewMsgDetails : public Wt::WTable {
public:
    explicit WEventViewMsgDetails(Wt::WContainerWidget* parent = nullptr);

    virtual void setContent(const Wt::WString& type, const Wt::WString& date, const Wt::WString& eid,
                            const Wt::WString& message);

private:
    std::array<Wt::WText*, 4> mTexts; // in the order of setContent()
};

/// The pane below the lists.
class WEventViewDetails : public WCollapsingContextPanel {
public:
    explicit WEventViewDetails(Wt::WContainerWidget* parent = nullptr);

    WEventViewMsgDetails& message() const { return *mMessage; }

private:
    WEventViewMsgDetails* mMessage;
};
