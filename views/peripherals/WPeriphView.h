#pragma once

#include "views/WEmptyPage.h"

/// Library of stored monitors.
class WPeriphView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*forceDetails*/, bool /*forceList*/) {}
};
