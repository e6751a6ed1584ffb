#include "frame/CountedText.h"

Wt::WString countedText(std::size_t count, const char* oneKey, const char* manyKey) {
    if (count == 1) return Wt::WString::tr(oneKey);
    return Wt::WString::fromUTF8(std::to_string(count) + " " + Wt::WString::tr(manyKey).toUTF8());
}
