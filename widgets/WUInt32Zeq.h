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

    /// What is read is shown as this says.
    void setDisplayFormat(std::string (*format)(unsigned value)) { mFormat = format; }

    /// As read or set, not scaled; 0 while nothing is shown.
    virtual unsigned getValue() const { return mValue; }

protected:
    void showValue(const unsigned& value) override;
    void showNothing() override;

private:
    bool mScaled = false;
    double mScale = 1.0;
    std::string (*mFormat)(unsigned) = nullptr;
    unsigned mValue = 0;
};
