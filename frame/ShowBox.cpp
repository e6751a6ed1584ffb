#include "frame/ShowBox.h"

void fillBox(WMsgBox& box, const BoxRow& row, const Wt::WString& text) {
    if (row.maxWidthPx > 0) box.setMaximumSize(row.maxWidthPx, Wt::WLength::Auto);
    box.titleSet(Wt::WString::tr(row.title));
    box.msgSet(text);
    for (const char* button : row.buttons)
        if (button) box.buttonAdd(Wt::WString::tr(button));
}

int showBox(const BoxRow& row, const Wt::WString& text) {
    WMsgBox box(row.type);
    fillBox(box, row, text);
    box.exec();
    return box.buttonClicked();
}
