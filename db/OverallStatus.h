#pragma once

#include <string>

/// What the one word for a device is made from. The numbers are those of the Info_* enumerations; any other
/// number is allowed.
struct OverallStatusFacts {
    /// How far a device is taken by a login or by KVM sessions.
    enum Busy : unsigned { Free = 1, InUse, Shared, Private };

    unsigned status;
    unsigned upgrade;
    unsigned usage;
    unsigned busy = Free;
    unsigned percent = 0;
};

// `text` gets the translated word. 1 when no rule covers the facts; the text then reads as unknown.

unsigned OverallStatus_ofRxOrTx(const OverallStatusFacts& facts, std::string& text);
unsigned OverallStatus_ofSwx(const OverallStatusFacts& facts, std::string& text);
