#include <Wt/WFormWidget.h>
#include <Wt/WValidator.h>

namespace Wt {

WValidator::WValidator(WObject* parent) : WObject(parent) {}
WValidator::WValidator(bool mandatory, WObject* parent) : WObject(parent), mMandatory(mandatory) {}

WValidator::~WValidator() {
    const auto widgets = mFormWidgets;
    for (WFormWidget* widget : widgets) widget->setValidator(nullptr);
}

void WValidator::setMandatory(bool mandatory) {
    if (mMandatory == mandatory) return;
    mMandatory = mandatory;
    repaint();
}

void WValidator::setInvalidBlankText(const WString& text) {
    mBlankText = text;
    repaint();
}

WString WValidator::invalidBlankText() const {
    return mBlankText.empty() ? WString("This field cannot be empty") : mBlankText;
}

WValidator::Result WValidator::validate(const WString& input) const {
    if (mMandatory && input.empty()) return Result(InvalidEmpty, invalidBlankText());
    return Result(Valid);
}

std::string WValidator::inputFilter() const {
    return {};
}

void WValidator::repaint() {
    for (WFormWidget* widget : mFormWidgets) widget->validatorChanged();
}

} // namespace Wt
