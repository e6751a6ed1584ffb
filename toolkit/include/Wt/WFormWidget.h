#pragma once

#include <Wt/WInteractWidget.h>
#include <Wt/WString.h>
#include <Wt/WValidator.h>

namespace Wt {

class WLabel;

/// A widget with a value that the user changes. The value arrives with the next event,
/// before its handlers run.
class WFormWidget : public WInteractWidget {
public:
    explicit WFormWidget(WContainerWidget* parent = nullptr);
    ~WFormWidget() override;

    /// Not owned, unless it has no parent yet: then this becomes its parent.
    virtual void setValidator(WValidator* validator);
    virtual void setReadOnly(bool readOnly);
    /// Hint shown while the value is empty.
    void setEmptyText(const WString& emptyText);
    void setEnabled(bool enabled) { setDisabled(!enabled); }
    void refresh() override;

    /// Judges the present value; marks the field (style class "Wt-invalid", aria-invalid) if it is bad.
    virtual WValidator::State validate();

    virtual WString valueText() const = 0;
    virtual void setValueText(const WString& value) = 0;
    WLabel* label() const { return mLabel; }
    WValidator* validator() const { return mValidator; }
    bool isReadOnly() const { return mReadOnly; }
    const WString& emptyText() const;
    bool canReceiveFocus() const override { return true; }

    /// The user changed the value: of a text when the field loses the focus or Enter is pressed.
    EventSignal<>& changed() { return plainSignal("change"); }
    EventSignal<>& selected() { return plainSignal("select"); }
    Signal<WValidator::Result>& validated();

    void setHidden(bool hidden, const WAnimation& animation = WAnimation()) override;

protected:
    void describe(Impl::ElementSpec& spec) override;
    /// What the input element itself has: enabled state, hint, validation.
    void describeField(Impl::ElementSpec& spec) const;
    /// id() of the element that takes the input.
    virtual std::string inputId() const { return id(); }
    bool needsKeyboardStop() const override { return false; }
    void propagateSetEnabled(bool enabled) override;
    /// The validator changed its rule.
    void validatorChanged();

private:
    friend class WLabel;
    friend class WValidator;

    struct Form; // hint, validation message and signal: made on first use
    Form& form();

    WLabel* mLabel = nullptr;
    WValidator* mValidator = nullptr;
    std::unique_ptr<Form> mForm;
    bool mReadOnly = false;
};

} // namespace Wt
