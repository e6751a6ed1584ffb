#include "widgets/WLineEditUInt32Zeq.h"

#include <cstdlib>

WLineEditUInt32Zeq::WLineEditUInt32Zeq(const char* resource, const char* key, bool indexed,
                                       Wt::WContainerWidget* parent)
    : WLineEditPlus(parent), ZeqEditField(resource, key, indexed) {
    valueChanged().connect(this, &WLineEditUInt32Zeq::contentChangedHandler);
}

void WLineEditUInt32Zeq::setValue(unsigned value) {
    setText(Wt::WString::fromUTF8(std::to_string(value)));
}

void WLineEditUInt32Zeq::contentChangedHandler() {
    markEdited();
}

void WLineEditUInt32Zeq::showValue(const unsigned& value) {
    setValue(value);
}

void WLineEditUInt32Zeq::showNothing() {
    setText(Wt::WString());
}

unsigned WLineEditUInt32Zeq::enteredValue() const {
    return static_cast<unsigned>(std::strtol(text().toUTF8().c_str(), nullptr, 10));
}
