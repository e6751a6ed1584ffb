#pragma once

#include "views/WEmptyPage.h"

/// Unacknowledged events and event history.
class WEventView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*force*/) {}
};
