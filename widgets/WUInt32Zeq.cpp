#include "widgets/WUInt32Zeq.h"

#include <cstdio>

WUInt32Zeq::WUInt32Zeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent),
      ZeqField(resource, key, indexed, FailedRead::ShowsNothing) {}

void WUInt32Zeq::setValue(unsigned value) {
    mValue = value;
    setText(Wt::WString::fromUTF8(std::to_string(value)));
}

void WUInt32Zeq::setDisplayScaling(double factor) {
    mScale = factor;
    mScaled = true;
}

void WUInt32Zeq::showValue(const unsigned& value) {
    if (!mScaled && !mFormat) return setValue(value);
    mValue = value;
    if (mFormat) {
        setText(Wt::WString::fromUTF8(mFormat(value)));
        return;
    }
    char text[64];
    std::snprintf(text, sizeof text, "%.1f", static_cast<double>(value) * mScale);
    setText(Wt::WString::fromUTF8(text));
}

void WUInt32Zeq::showNothing() {
    mValue = 0;
    setText(Wt::WString());
}
