#include "widgets/WLineEditZeq.h"

WLineEditZeq::WLineEditZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : WLineEditPlus(parent), ZeqEditField(resource, key, indexed) {
    valueChanged().connect(this, &WLineEditZeq::contentChangedHandler);
}

void WLineEditZeq::setContentChanged(bool changed) {
    if (changed)
        setContentChanged();
    else
        clearContentChanged();
}

void WLineEditZeq::contentChangedHandler() {
    markEdited();
}

void WLineEditZeq::showValue(const std::string& value) {
    setText(Wt::WString::fromUTF8(value));
}

void WLineEditZeq::showNothing() {
    setText(Wt::WString());
}

std::string WLineEditZeq::enteredValue() const {
    return text().toUTF8();
}
