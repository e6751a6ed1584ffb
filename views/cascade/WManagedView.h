#pragma once

#include "views/WEmptyPage.h"

/// The one page of a Switch under an external manager.
class WManagedView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*force*/) {}
};
