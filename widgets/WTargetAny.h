#pragma once

#include "widgets/ZeqRecordBox.h"

/// The Transmitter that a Receiver connects to by itself, among all Transmitters: "EID (name)".
class WTargetAny : public ZeqTextRecordBox {
public:
    explicit WTargetAny(bool indexed, Wt::WContainerWidget* parent = nullptr);

    unsigned updateListOfChoices() override;

protected:
    /// The EID.
    std::string storedText(const std::string& itemText) const override;
};
