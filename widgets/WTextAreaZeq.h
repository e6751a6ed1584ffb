#pragma once

#include "widgets/WTextAreaPlus.h"
#include "widgets/ZeqField.h"

/// Several lines of text, bound to a text of the database.
class WTextAreaZeq : public WTextAreaPlus, public ZeqEditField<std::string> {
public:
    WTextAreaZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent = nullptr);

    using ZeqEditField::setContentChanged;
    virtual void setContentChanged(bool changed);
    virtual void contentChangedHandler();
    /// In characters; the browser takes no more.
    virtual void setMaxLength(unsigned characters);

protected:
    void showValue(const std::string& value) override;
    void showNothing() override;
    std::string enteredValue() const override;

private:
    unsigned mMaxLength = 0; // 0 = no limit
};
