#pragma once

#include "views/WEmptyPage.h"

/// Running KVM sessions.
class WSesView : public WEmptyPage {
public:
    using WEmptyPage::WEmptyPage;

    void readFromDatabase(bool /*force*/) {}
};
