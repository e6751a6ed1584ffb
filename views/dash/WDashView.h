#pragma once

#include "views/WEmptyPage.h"

/// Landing page.
class WDashView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase() {}
    void eventLogClear() {}
};
