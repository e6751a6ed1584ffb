#include "widgets/WOsdHotkeyFunc.h"

void WOsdHotkeyFunc::showValue(const std::string& value) {
    removeBlank();
    selectByDbValue(value);
}
