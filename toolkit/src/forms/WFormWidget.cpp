#include <Wt/WFormWidget.h>

#include "validators/ClientRule.h"
#include "web/ElementSpec.h"

#include <Wt/WLabel.h>

#include <boost/json/object.hpp>
#include <boost/json/serialize.hpp>

namespace Wt {

struct WFormWidget::Form {
    WString emptyText;
    WString message; // of the validator, while the value is bad
    Signal<WValidator::Result> validated;
};

WFormWidget::WFormWidget(WContainerWidget* parent) : WInteractWidget(parent) {
    setInline(true);
}

WFormWidget::~WFormWidget() {
    if (mLabel) mLabel->setBuddy(nullptr);
    setValidator(nullptr);
}

WFormWidget::Form& WFormWidget::form() {
    if (!mForm) mForm = std::make_unique<Form>();
    return *mForm;
}

void WFormWidget::setValidator(WValidator* validator) {
    if (validator == mValidator) return;
    if (mValidator) {
        mValidator->mFormWidgets.erase(this);
        if (mValidator->parent() == this) delete mValidator;
    }
    mValidator = validator;
    if (!validator) return;
    validator->mFormWidgets.insert(this);
    if (!validator->parent()) addChild(validator);
    nodeChanged();
}

// The validator is dying or changed its rule; a dying one is told apart by setValidator(nullptr).
void WFormWidget::validatorChanged() {
    nodeChanged();
}

WValidator::State WFormWidget::validate() {
    if (!mValidator) return WValidator::Valid;
    const WValidator::Result result = mValidator->validate(valueText());
    const bool bad = result.state() != WValidator::Valid;
    if (bad || mForm) {
        form().message = bad ? result.message() : WString();
        nodeChanged();
    }
    if (bad)
        addStyleClass("Wt-invalid", true);
    else
        removeStyleClass("Wt-invalid", true);
    if (mForm) mForm->validated.emit(result);
    return result.state();
}

void WFormWidget::setReadOnly(bool readOnly) {
    if (mReadOnly == readOnly) return;
    mReadOnly = readOnly;
    nodeChanged();
}

void WFormWidget::setEmptyText(const WString& emptyText) {
    form().emptyText = emptyText;
    nodeChanged();
}

const WString& WFormWidget::emptyText() const {
    return mForm ? mForm->emptyText : WString::Empty;
}

Signal<WValidator::Result>& WFormWidget::validated() {
    return form().validated;
}

void WFormWidget::setHidden(bool hidden, const WAnimation& animation) {
    if (mLabel) mLabel->setHidden(hidden, animation);
    WInteractWidget::setHidden(hidden, animation);
}

void WFormWidget::refresh() {
    nodeChanged();
    WInteractWidget::refresh();
}

void WFormWidget::propagateSetEnabled(bool enabled) {
    nodeChanged();
    WInteractWidget::propagateSetEnabled(enabled);
}

void WFormWidget::describe(Impl::ElementSpec& spec) {
    WInteractWidget::describe(spec);
    describeField(spec);
}

void WFormWidget::describeField(Impl::ElementSpec& spec) const {
    if (!isEnabled()) spec.property("disabled", true);
    if (mReadOnly) spec.property("readOnly", true);
    if (mForm) {
        const std::string hint = mForm->emptyText.toUTF8();
        if (!hint.empty()) spec.attribute("placeholder", hint);
        const std::string message = mForm->message.toUTF8();
        if (!message.empty()) spec.attribute("title", message);
    }
    if (hasStyleClass("Wt-invalid")) spec.attribute("aria-invalid", "true");
    if (!mValidator) return;
    if (mValidator->isMandatory()) spec.attribute("aria-required", "true");
    const boost::json::object rule = Impl::clientRule(*mValidator);
    if (!rule.empty()) spec.propertyJson("wtRule", boost::json::serialize(rule));
}

} // namespace Wt
