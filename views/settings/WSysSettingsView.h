#pragma once

#include "views/WEmptyPage.h"

/// Settings of the whole system.
class WSysSettingsView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*force*/) {}
};
