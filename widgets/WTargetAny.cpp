#include "widgets/WTargetAny.h"

#include "widgets/RecordChoices.h"
#include "widgets/TargetItem.h"

WTargetAny::WTargetAny(bool indexed, Wt::WContainerWidget* parent)
    : ZeqTextRecordBox("rx", "autoConnectTxEid", indexed, parent) {}

unsigned WTargetAny::updateListOfChoices() {
    clear();
    const unsigned result =
        visitRecords("tx", {"eid", "name"}, __func__, [this](const json_t* table, int row) {
            const char* eid = ZeqRspUtil_getIndexedStringParam(table, row, "eid");
            const char* name = ZeqRspUtil_getIndexedStringParam(table, row, "name");
            if (eid && name) addItem(targetText(eid, name));
        });
    if (result == 0) addBlank();
    return result;
}

std::string WTargetAny::storedText(const std::string& itemText) const {
    return itemText.substr(0, kEidLength);
}
