#include "widgets/WComboBoxZeqDynamic.h"

#include "widgets/RecordChoices.h"

WComboBoxZeqDynamic::WComboBoxZeqDynamic(const char* resource, const char* key, const char* listResource,
                                         const char* listKey, bool indexed, Wt::WContainerWidget* parent)
    : ZeqTextRecordBox(resource, key, indexed, parent), mListResource(listResource), mListKey(listKey) {}

unsigned WComboBoxZeqDynamic::updateListOfChoices() {
    clear();
    const unsigned result =
        visitRecords(mListResource, {mListKey}, __func__, [this](const json_t* table, int row) {
            if (const char* text = ZeqRspUtil_getIndexedStringParam(table, row, mListKey))
                addItem(Wt::WString::fromUTF8(text));
        });
    if (result == 0) addBlank();
    return result;
}
