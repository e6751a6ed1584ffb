#pragma once

#include "views/peripherals/MonitorTransfer.h"

#include <string>
#include <utility>
#include <vector>

namespace Wt {
class WProgressBar;
class WTextArea;
} // namespace Wt

class WPushMonitorDialogTxList;

/// Pushes a stored monitor to Transmitters that the user selects. Run with exec().
class WPushMonitorDialog : public MonitorTransfer {
public:
    /// `type` of the monitor in the user's words, as the list of Transmitters has it.
    WPushMonitorDialog(unsigned edidIndex, const std::string& type);

private:
    struct Target {
        unsigned index; // of the Transmitter
        std::string type, name;
    };
    struct Failure {
        std::string name;
        std::vector<std::string> errors;
    };

    void transfer() override;
    std::vector<Target> selectedTargets() const;
    bool mismatchIsAccepted(const std::vector<Target>& targets) const;
    std::vector<Failure> pushTo(const std::vector<Target>& targets);
    void tell(const std::vector<Failure>& failures, std::size_t selected);

    const unsigned mEdid;
    const std::string mType;
    WPushMonitorDialogTxList* mTransmitters;
    Wt::WProgressBar* mProgress;
    Wt::WTextArea* mFailures;
};
