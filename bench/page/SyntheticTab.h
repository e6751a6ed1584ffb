#pragma once

#include "page/SortedList.h"

#include <Wt/WContainerWidget>

namespace Wt {
class WTimer;
}

/// One main tab of the synthetic page.
class SyntheticTab : public Wt::WContainerWidget {
public:
    SyntheticTab();

    void startRefresh();

private:
    Wt::WWidget* makeAccordion();
    Wt::WWidget* makeDetails();
    void refresh();

    SortedList mList;
    Wt::WTimer* mTimer;
};
