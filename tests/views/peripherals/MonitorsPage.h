#pragma once

#include "tests/views/PageTest.h"
#include "views/peripherals/MonitorTransfer.h"
#include "views/peripherals/WPeriphView.h"

class RecordTable;

/// The Peripherals tab of an administrator, on the demo installation of a service of its own.
class MonitorsPage : public PageTest {
protected:
    MonitorsPage();

    /// Selects the rows of these names, and no others.
    void select(const std::vector<std::string>& names) { selectIn(*listOf(*view), names, 1); }
    void clickAction(MonitorAction action) { click(actionButton(action)); }
    void tick() { view->refreshTimerTimeout(); }

    /// Opens the dialog of the action, selects these devices there and presses the button.
    void transfer(MonitorAction action, const std::vector<std::string>& devices,
                  const std::function<void(MonitorTransfer&)>& before = {},
                  const std::function<void(MonitorTransfer&)>& behind = {});

    std::vector<std::string> names() const;         // of the list, in its order
    std::string row(const std::string& name) const; // its cells, joined by "|"
    std::string actions() const;                    // X for each enabled one, . for the others
    std::string report() const;                     // of the decode tab

    /// Product code of the block that the Transmitter shows to its computer.
    static std::string shownBy(unsigned txIndex);

    WPeriphView* view;

private:
    static RecordTable* listOf(const WPeriphView& view);
    static void selectIn(RecordTable& table, const std::vector<std::string>& names, int column);
    Wt::WPushButton* actionButton(MonitorAction action) const;
};
