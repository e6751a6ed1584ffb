#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WText>

/// A number of the database, read only.
class WUInt32Zeq : public Wt::WText, public ZeqField<unsigned> {
public:
    WUInt32Zeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    virtual void setValue(unsigned value);
    /// What is read is shown times the factor, with one decimal.
    virtual void setDisplayScaling(double factor);

    /// As read or set, not scaled.
    virtual unsigned getValue() const { return mValue; }

protected:
    void showValue(const unsigned& value) override;
    void showNothing() override;

private:
    bool mScaled = false;
    double mScale = 1.0;
    unsigned mValue = 0;
};
