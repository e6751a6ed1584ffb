#pragma once

#include <Wt/WInteractWidget.h>

namespace Wt {

/// A bar that fills from minimum to maximum, with a text over it.
class WProgressBar : public WInteractWidget {
public:
    explicit WProgressBar(WContainerWidget* parent = nullptr);

    void setMinimum(double minimum); ///< default 0
    double minimum() const { return mMinimum; }
    void setMaximum(double maximum); ///< default 100
    double maximum() const { return mMaximum; }
    void setRange(double minimum, double maximum);
    void setValue(double value); ///< default 0; cut to the range
    double value() const { return mValue; }
    void setState(double minimum, double maximum, double value);
    void setFormat(const WString& format); ///< printf for one double, the percentage; default "%.0f %%"
    const WString& format() const { return mFormat; }
    virtual WString text() const;
    double percentage() const; ///< 0 to 100

    Signal<double>& valueChanged() { return mValueChanged; }
    Signal<>& progressCompleted() { return mCompleted; } ///< the value has become the maximum

protected:
    void describe(Impl::ElementSpec& spec) override;

private:
    double mMinimum = 0, mMaximum = 100, mValue = 0;
    WString mFormat;
    Signal<double> mValueChanged;
    Signal<> mCompleted;
};

} // namespace Wt
