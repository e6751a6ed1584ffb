#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WText>

/// A text of the database, read only.
class WTextZeq : public Wt::WText, public ZeqField<std::string> {
public:
    WTextZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

protected:
    void showValue(const std::string& value) override;
    void showNothing() override;
};
