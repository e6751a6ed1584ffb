#include "frame/TabLabel.h"

#include <Wt/WMenuItem>
#include <Wt/WString>

#include <string>

void MirlUtil_indicateChange(Wt::WMenuItem* item, bool changed) {
    if (!item) return;
    std::string label = item->text().toUTF8();
    const bool marked = !label.empty() && label.back() == '*';
    if (marked == changed) return;
    if (changed) {
        label += '*';
    } else {
        label.pop_back();
    }
    item->setText(Wt::WString::fromUTF8(label));
}
