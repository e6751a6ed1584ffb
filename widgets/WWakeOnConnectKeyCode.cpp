#include "widgets/WWakeOnConnectKeyCode.h"

#include <cstring>

namespace {

constexpr int kCustomItem = 4;

struct CodeRow {
    unsigned code;
    const char* labelKey;
};

// 225 and 226 stand against their names on the keyboard page (LeftShift, LeftAlt); the
// pairing is kept as it is.
constexpr CodeRow kCodes[] = {
    {224, "[RSnnn]Ctrl"},
    {225, "[RSnnn]Alt"},
    {226, "[RSnnn]Shift"},
    {130, "[RSnnn]Caps Lock"},
};

const char* labelOf(unsigned code) {
    for (const CodeRow& row : kCodes)
        if (row.code == code) return row.labelKey;
    return "[RSnnn]Custom";
}

} // namespace

void WWakeOnConnectKeyCode::showValue(unsigned code) {
    removeBlank();
    for (int i = 0; i < choiceCount(); ++i)
        if (std::strcmp(choices()[static_cast<std::size_t>(i)].labelKey, labelOf(code)) == 0)
            return setCurrentIndex(i);
}

bool WWakeOnConnectKeyCode::customIsSelected() const {
    return currentIndex() == kCustomItem;
}
