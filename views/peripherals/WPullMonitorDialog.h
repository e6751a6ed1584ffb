#pragma once

#include "views/peripherals/MonitorTransfer.h"

#include <string>
#include <vector>

namespace Wt {
class WText;
}

class WPullMonitorDialogDevList;

/// Pulls a monitor's block from a Receiver, or the one that a Transmitter shows to its computer, into the library.
/// Run with exec().
class WPullMonitorDialog : public MonitorTransfer {
public:
    WPullMonitorDialog();

private:
    void transfer() override;
    void fail(const char* messageKey, const std::vector<std::string>& errors = {});

    WPullMonitorDialogDevList* mDevices;
    Wt::WText* mError;
};
