#include "widgets/WUsr.h"

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "widgets/RecordChoices.h"

WUsr::WUsr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : ZeqRecordBox(resource, key, indexed, parent, Focus::IsIgnored) {}

unsigned WUsr::updateListOfChoices() {
    clear();
    std::vector<std::string> names;
    const unsigned result = visitRecords("user", {"name"}, __func__, [&](const json_t* table, int row) {
        if (const char* name = ZeqRspUtil_getIndexedStringParam(table, row, "name")) names.emplace_back(name);
    });
    if (result != 0) return result;
    MirlUtil_sort(names);
    for (const std::string& name : names) addItem(Wt::WString::fromUTF8(name));
    addBlank();
    return 0;
}

int WUsr::itemOf(const unsigned& userIndex) const {
    // 0 names no record; a read without an index would give the first user's name.
    if (userIndex == 0) return -1;
    std::string name;
    Errors dropped;
    if (Db::db.getUsernameFromUserIndex(userIndex, name, dropped) != 0) return -1;
    return findText(Wt::WString::fromUTF8(name));
}

unsigned WUsr::chosenUser(unsigned& userIndex, Errors& errors) const {
    return Db::db.findIndexOfStringKey("user", "index", "name", currentText().toUTF8().c_str(), userIndex,
                                       errors);
}

unsigned WUsr::writeToDatabase(const Indexes& indexes, Errors& errors) {
    if (!hasChangedContent() || hasNoRecord(indexes)) return 0;
    unsigned userIndex = 0;
    if (const unsigned result = chosenUser(userIndex, errors)) return result;
    unsigned result = 0;
    for (const unsigned index : records(indexes)) {
        if (indexed() && blankIsShown()) break;
        result = Db::db.writeUInt32(resource(), index, key(), userIndex, errors);
        if (result != 0) break;
    }
    clearContentChanged();
    return result;
}

void WUsr::setZeqParam(json_t* params) {
    if (!hasChangedContent() || blankIsShown()) return;
    unsigned userIndex = 0;
    Errors dropped;
    if (chosenUser(userIndex, dropped) == 0) ZeqObj_setInteger(params, key(), userIndex);
}
