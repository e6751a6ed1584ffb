#include "widgets/WTextZeq.h"

WTextZeq::WTextZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent),
      ZeqField(resource, key, indexed, FailedRead::ShowsNothing) {}

void WTextZeq::showValue(const std::string& value) {
    setText(Wt::WString::fromUTF8(value));
}

void WTextZeq::showNothing() {
    setText(Wt::WString());
}
