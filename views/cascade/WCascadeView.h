#pragma once

#include "views/WEmptyPage.h"

/// Switches that work together.
class WCascadeView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase() {}
};
