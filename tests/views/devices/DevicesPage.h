#pragma once

#include "tests/views/PageTest.h"
#include "views/devices/page/WDevView.h"
#include "views/devices/page/WDevViewDetails.h"

#include <string>
#include <vector>

/// The Devices tab of an administrator, on the demo installation of a service of its own.
class DevicesPage : public PageTest {
protected:
    DevicesPage();

    // The user's doing.

    /// Selects the rows of these names, and no others.
    void select(const std::vector<std::string>& names);
    void clickAction(DeviceAction action) { click(cellButton(action)); }
    /// The refresh timer fires.
    void tick() { view->refreshTimerTimeout(); }

    // What there is to see.

    std::vector<std::string> selected() const;                   // names, in the list's order
    std::string cell(const std::string& name, int column) const; // of the list's row of that name
    std::string actions() const;                                 // X for each enabled one, . for the others

    WDevView* view;

private:
    Wt::WPushButton* cellButton(DeviceAction action) const;
};
