#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WAnchor>

/// An address of the database as a link to the page of the device that has it.
class WAnchorZeq : public Wt::WAnchor, public ZeqField<std::string> {
public:
    WAnchorZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

protected:
    void showValue(const std::string& value) override;
    void showNothing() override;
};
