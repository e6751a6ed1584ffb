#include "widgets/LookupTexts.h"

unsigned lookupKeyboardLayout(unsigned index, std::string& text, Db::Errors& errors) {
    std::string layout;
    const unsigned result = Db::db.getKeyboardLayoutFromRxIndex(index, layout, errors);
    text = Wt::WString::tr("keyboardLayout.text." + layout).toUTF8();
    return result;
}
