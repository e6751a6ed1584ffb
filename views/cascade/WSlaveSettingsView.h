#pragma once

#include "views/WEmptyPage.h"

/// The one page of a slave Switch.
class WSlaveSettingsView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*force*/) {}
    bool anythingChanged() const { return false; }
};
