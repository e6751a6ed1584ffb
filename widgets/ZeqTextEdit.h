#pragma once

#include "widgets/ZeqField.h"

/// A text that the user edits, bound to a text of the database. Text is WLineEditPlus or WTextAreaPlus.
template <class Text>
class ZeqTextEdit : public Text, public ZeqEditField<std::string> {
public:
    using ZeqEditField<std::string>::setContentChanged;

    ZeqTextEdit(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
        : Text(parent), ZeqEditField(resource, key, indexed) {
        this->valueChanged().connect(this, &ZeqTextEdit::contentChangedHandler);
    }

    virtual void setContentChanged(bool changed) {
        if (changed)
            setContentChanged();
        else
            clearContentChanged();
    }
    virtual void contentChangedHandler() { markEdited(); }

protected:
    void showValue(const std::string& value) override { this->setText(Wt::WString::fromUTF8(value)); }
    void showNothing() override { this->setText(Wt::WString()); }
    void showDifferent() override { this->showDifference(); }
    std::string enteredValue() const override { return this->text().toUTF8(); }
};
