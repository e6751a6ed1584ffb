#include "widgets/WAnchorZeq.h"

#include <cstring>

namespace {

// On purpose: no field has this key, and every address gets the brackets, also one of IPv4.
constexpr const char* kKeyWithoutBrackets = "ZEQKEYS_SWX_NETWORK_IPV6_IP_ADDRESS";

} // namespace

WAnchorZeq::WAnchorZeq(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : Wt::WAnchor(parent), ZeqField(resource, key, indexed, FailedRead::ShowsNothing) {
    setTextFormat(Wt::PlainText);
    setTarget(Wt::TargetNewWindow);
}

void WAnchorZeq::showValue(const std::string& value) {
    setText(Wt::WString::fromUTF8(value));
    const bool plain = std::strcmp(key(), kKeyWithoutBrackets) == 0;
    setLink(Wt::WLink(plain ? "https://" + value : "https://[" + value + "]"));
}

void WAnchorZeq::showNothing() {
    showValue(std::string());
}
