#include "widgets/WVideoResolution.h"

#include "widgets/ZeqValue.h"

namespace {

// False when the records differ or one is missing.
bool extract(const json_t* table, const WWidgetZeq::Indexes& indexes, const char* key, unsigned& value) {
    bool same = true;
    return zeqExtract(table, indexes, key, value, same) == 0 && same;
}

} // namespace

WVideoResolution::WVideoResolution(const char* resource, const char* horizontalKey, const char* verticalKey,
                                   bool indexed, Wt::WContainerWidget* parent)
    : Wt::WText(Wt::WString(), Wt::PlainText, parent), WWidgetZeq(resource, horizontalKey, indexed),
      mVerticalKey(verticalKey) {}

unsigned WVideoResolution::readFromDatabase(const Indexes&, Errors&, bool) {
    return 0;
}

void WVideoResolution::getZeqParam(const json_t* table, const Indexes& indexes, bool) {
    const bool horizontal = extract(table, indexes, key(), mHorizontal);
    const bool vertical = extract(table, indexes, mVerticalKey, mVertical);
    const std::string text = std::to_string(mHorizontal) + " x " + std::to_string(mVertical);
    setText(horizontal && vertical ? Wt::WString::fromUTF8(text) : Wt::WString());
}
