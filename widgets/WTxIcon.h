#pragma once

#include "widgets/ZeqField.h"

#include <Wt/WStackedWidget>

/// The icon of a Transmitter, by its number 1 to 32; 0 = none. A click lets the user choose another.
class WTxIcon : public ZeqEditField<unsigned>, public Wt::WStackedWidget {
public:
    WTxIcon(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    /// A number above the last icon becomes 0 first.
    void showSelectedIcon();
    /// Leaves the number alone.
    void showUnknown();
    void setDisabled(bool disabled) override;

protected:
    void showValue(const unsigned& value) override;
    void showNothing() override;
    unsigned enteredValue() const override { return mValue; }

private:
    void addPage(const std::string& file, const Wt::WString& name);
    void clickedHandler();

    unsigned mValue = 0;
};
