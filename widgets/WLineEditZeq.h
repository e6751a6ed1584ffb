#pragma once

#include "widgets/WLineEditPlus.h"
#include "widgets/ZeqField.h"

/// One line of text, bound to a text of the database.
class WLineEditZeq : public WLineEditPlus, public ZeqEditField<std::string> {
public:
    WLineEditZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    using ZeqEditField::setContentChanged;
    virtual void setContentChanged(bool changed);
    virtual void contentChangedHandler();

protected:
    void showValue(const std::string& value) override;
    void showNothing() override;
    std::string enteredValue() const override;
};
