#include "views/devices/firmware/WDevViewChooseFwUpdateSrcTable.h"

#include "db/Convert.h"
#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/EmptyText.h"
#include "frame/MirlUtil.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "platform/client/ZeqRsp.h"
#include "views/devices/firmware/FwUpdateSource.h"
#include "views/devices/list/ZeqRow.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

namespace {

enum Column { kIndex, kFile, kSource, kDeviceType, kVersion, kColumnCount };

constexpr int kFileWidth = 338; // pixels

std::string deviceTypeOf(const json_t* row) {
    const std::string type = zeqRowText(row, "deviceType");
    return type.empty() || type == "none" ? "" : Convert_deviceTypeDbStringToUiString(type);
}

} // namespace

WDevViewChooseFwUpdateSrcTable::WDevViewChooseFwUpdateSrcTable(Wt::WContainerWidget* parent)
    : Wt::WTableView(parent), mProxy(new WNumericSortFilterProxyModel(this)) {
    mModel = new Wt::WStandardItemModel(0, kColumnCount, mProxy);
    mProxy->setSourceModel(mModel);
    mProxy->setFilterKeyColumn(kFile);
    mProxy->setDynamicSortFilter(true);
    const Wt::WString headers[] = {"Index", tr("[RSnnn]File"), tr("[RSnnn]Source"), tr("[RSnnn]Device type"),
                                   tr("[RSnnn]Version")};
    for (int column = 0; column < kColumnCount; ++column)
        mModel->setHeaderData(column, Wt::Horizontal, boost::any(headers[column]));
    setModel(mProxy);
    emptyText(*this, tr("devices.update.files.empty"));
    resize(700, 200);
    setSelectionMode(Wt::ExtendedSelection);
    setColumnResizeEnabled(true);
    setColumnHidden(kIndex, true);
    setColumnWidth(kFile, kFileWidth);
    for (int column = kSource; column < kColumnCount; ++column) setColumnWidth(column, 100);
}

void WDevViewChooseFwUpdateSrcTable::readFromDatabase() {
    mModel->removeRows(0, mModel->rowCount());
    ZeqClient_s* client = nullptr;
    if (Db::db.getZeqClient(client) != 0) return;
    const ZeqPtr files = zeqRetrieve(ZeqReq_upgradeRetrieve, client, nullptr);
    if (!files) return;
    if (const json_t* refusal = ZeqRspUtil_getObjectParam(files.get(), "errors")) {
        std::vector<std::string> errors;
        Db::db.interpZeqErrors(refusal, errors, true); // an empty list is nothing to report
        Db::db.logZeqErrors(errors);
        return;
    }
    const int count = ZeqRspUtil_numEntries(files.get());
    if (count < 1) return;
    mModel->insertRows(0, count);
    for (int i = 0; i < count; ++i) {
        const json_t* file = ZeqObj_getRow(files.get(), i);
        if (!file) continue;
        mModel->setData(i, kIndex, boost::any(unsigned(ZeqRspUtil_getIntegerParam(file, "index"))));
        mModel->setData(
            i, kFile, boost::any(joinedFileName(zeqRowText(file, "location"), zeqRowText(file, "filename"))));
        mModel->setData(i, kSource, boost::any(zeqRowText(file, "protocol")));
        mModel->setData(i, kDeviceType, boost::any(deviceTypeOf(file)));
        mModel->setData(i, kVersion, boost::any(zeqRowText(file, "version")));
    }
}

void WDevViewChooseFwUpdateSrcTable::deleteSelected() {
    std::vector<std::string> errors;
    for (Wt::WModelIndexSet rows = selectedIndexes(); !rows.empty(); rows = selectedIndexes()) {
        const Wt::WModelIndex row = *rows.begin();
        unsigned zeqIndex = 0;
        MirlUtil_modelIndexToZeqIndex(row, mModel, mProxy, zeqIndex);
        const bool removed = mModel->removeRow(mProxy->mapToSource(row).row());
        if (zeqIndex != 0) Db::db.deleteRecordByIndex("upgrade", zeqIndex, errors);
        if (!removed) return;
    }
}

int WDevViewChooseFwUpdateSrcTable::rowCount() const {
    return mModel->rowCount();
}

int WDevViewChooseFwUpdateSrcTable::numSelected() const {
    return static_cast<int>(selectedIndexes().size());
}

unsigned WDevViewChooseFwUpdateSrcTable::selectedZeqIndex() const {
    const Wt::WModelIndexSet rows = selectedIndexes();
    unsigned zeqIndex = 0;
    if (rows.size() == 1) MirlUtil_modelIndexToZeqIndex(*rows.begin(), mModel, mProxy, zeqIndex);
    return zeqIndex;
}
