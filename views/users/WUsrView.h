#pragma once

#include "views/WEmptyPage.h"

/// Accounts and their rights.
class WUsrView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*forceDetails*/, bool /*forceList*/) {}
    void discardChanges() {}
};
