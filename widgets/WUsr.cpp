#include "widgets/WUsr.h"

#include "db/Db.h"
#include "db/MirlUtil.h"
#include "widgets/RecordChoices.h"

WUsr::WUsr(const char* resource, const char* key, bool indexed, Wt::WContainerWidget* parent)
    : ZeqRecordBox(resource, key, indexed, parent, Focus::IsIgnored) {}

unsigned WUsr::updateListOfChoices() {
    clear();
    mNames.clear();
    std::vector<std::string> names;
    const unsigned result =
        visitRecords("user", {"index", "name"}, __func__, [&](const json_t* table, int row) {
            const char* name = ZeqRspUtil_getIndexedStringParam(table, row, "name");
            if (!name) return;
            names.emplace_back(name);
            mNames[static_cast<unsigned>(ZeqRspUtil_getIndexedIntegerParam(table, row, "index"))] = name;
        });
    if (result != 0) return result;
    MirlUtil_sort(names);
    for (const std::string& name : names) addItem(Wt::WString::fromUTF8(name));
    addBlank();
    return 0;
}

int WUsr::itemOf(const unsigned& userIndex) const {
    const auto name = mNames.find(userIndex);
    return name == mNames.end() ? -1 : findText(Wt::WString::fromUTF8(name->second));
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
