#include "widgets/WTextAreaZeq.h"

WTextAreaZeq::WTextAreaZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : WTextAreaPlus(parent), ZeqEditField(resource, key, indexed) {
    valueChanged().connect(this, &WTextAreaZeq::contentChangedHandler);
}

void WTextAreaZeq::setContentChanged(bool changed) {
    if (changed)
        setContentChanged();
    else
        clearContentChanged();
}

void WTextAreaZeq::contentChangedHandler() {
    markEdited();
}

void WTextAreaZeq::setMaxLength(unsigned characters) {
    mMaxLength = characters;
    setAttributeValue("maxlength", std::to_string(mMaxLength));
}

void WTextAreaZeq::showValue(const std::string& value) {
    setText(Wt::WString::fromUTF8(value));
}

void WTextAreaZeq::showNothing() {
    setText(Wt::WString());
}

std::string WTextAreaZeq::enteredValue() const {
    return text().toUTF8();
}
