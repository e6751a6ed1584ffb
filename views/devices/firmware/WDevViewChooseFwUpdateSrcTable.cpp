#include "views/devices/firmware/WDevViewChooseFwUpdateSrcTable.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "views/devices/firmware/FwUpdateSource.h"

#include <Wt/WStandardItemModel>

namespace {

std::string fileOf(const ZeqRow& file) {
    return joinedFileName(file.text("location"), file.text("filename"));
}

std::string deviceTypeOf(const ZeqRow& file) {
    const std::string type = file.text("deviceType");
    return type.empty() || type == "none" ? "" : Convert_deviceTypeDbStringToUiString(type);
}

constexpr RecordColumn<> kColumns[] = {
    {"Index", RecordIndex{}},           {"[RSnnn]File", fileOf, 338},
    {"[RSnnn]Source", "protocol", 100}, {"[RSnnn]Device type", deviceTypeOf, 100},
    {"[RSnnn]Version", "version", 100},
};

} // namespace

WDevViewChooseFwUpdateSrcTable::WDevViewChooseFwUpdateSrcTable(Wt::WContainerWidget* parent)
    : RecordTable(kColumns, parent) {
    setSelectionMode(Wt::ExtendedSelection);
    setEmptyText(tr("devices.update.files.empty"));
    resize(700, 200);
}

void WDevViewChooseFwUpdateSrcTable::readFromDatabase() {
    read(kColumns, ZeqReq_upgradeRetrieve, nullptr);
}

void WDevViewChooseFwUpdateSrcTable::deleteSelected() {
    std::vector<std::string> errors;
    for (Wt::WModelIndexSet rows = selectedIndexes(); !rows.empty(); rows = selectedIndexes()) {
        const Wt::WModelIndex row = *rows.begin();
        const unsigned zeqIndex = zeqIndexAt(row);
        const bool removed = records()->removeRow(proxy()->mapToSource(row).row());
        if (zeqIndex != 0) Db::db.deleteRecordByIndex("upgrade", zeqIndex, errors);
        if (!removed) return;
    }
}
