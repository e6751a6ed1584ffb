#pragma once

#include <Wt/WAbstractToggleButton.h>

namespace Wt {

/// A check box. The user's click leads from partially checked to checked or unchecked, never back.
class WCheckBox : public WAbstractToggleButton {
public:
    explicit WCheckBox(WContainerWidget* parent = nullptr);
    explicit WCheckBox(const WString& text, WContainerWidget* parent = nullptr);

    void setTristate(bool tristate = true) { mTristate = tristate; }
    /// PartiallyChecked makes the box tristate.
    void setCheckState(CheckState state);

    bool isTristate() const { return mTristate; }
    CheckState checkState() const { return state(); }

protected:
    const char* inputType() const override { return "checkbox"; }
    bool supportsIndeterminate() const override { return true; }

private:
    bool mTristate = false;
};

} // namespace Wt
