#pragma once

#include "widgets/WLineEditPlus.h"
#include "widgets/ZeqField.h"

/// One line of text, bound to a number of the database.
class WLineEditUInt32Zeq : public WLineEditPlus, public ZeqEditField<unsigned> {
public:
    WLineEditUInt32Zeq(const char* resource, const char* key, bool indexed,
                       Wt::WContainerWidget* parent = nullptr);

    virtual void setValue(unsigned value);
    virtual void contentChangedHandler();

protected:
    void showValue(const unsigned& value) override;
    void showNothing() override;
    void showDifferent() override { showDifference(); }
    unsigned enteredValue() const override;
};
