#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WText>

/// Seconds since the epoch as "2024-03-07 09:05:00 UTC", read only.
class WNtpTime : public Wt::WText, public ZeqField<unsigned> {
public:
    WNtpTime(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

protected:
    void showValue(const unsigned& value) override;
    void showNothing() override;
};
