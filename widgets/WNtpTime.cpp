#include "widgets/WNtpTime.h"

#include <ctime>

WNtpTime::WNtpTime(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent), ZeqField(resource, key, indexed) {}

void WNtpTime::showValue(const unsigned& value) {
    const std::time_t seconds = value;
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[79];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &utc);
    setText(Wt::WString::fromUTF8(text));
}

void WNtpTime::showNothing() {
    setText(Wt::WString());
}
