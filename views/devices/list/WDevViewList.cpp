#include "views/devices/list/WDevViewList.h"

#include "frame/MirlUtil.h"
#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WStandardItemModel>

#include <boost/any.hpp>

WDevViewList::WDevViewList(const Wt::WString& title, Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, kColumnCount, true, parent) {
    setHeader(Index, "Index");
    setHeader(Eid, tr("[RSnnn]EID"));
    setHeader(Name, tr("[RSnnn]Name"));
    setHeader(Type, tr("[RSnnn]Type"));
    setHeader(Status, tr("[RSnnn]Status"));
    setHeader(Firmware, tr("[RSnnn]Firmware"));
    mTable->setSelectionMode(Wt::ExtendedSelection);
    mTable->setColumnHidden(Index, true);
    setEmptyText(tr("devices.list.empty"));
    mTable->sortByColumn(Name, Wt::AscendingOrder);
}

std::string WDevViewList::textOf(const Wt::WModelIndex& index, Column column, const char* none) const {
    const Wt::WModelIndex source = mProxy->mapToSource(index);
    if (!source.isValid()) return none;
    const boost::any cell = mModel->data(source.row(), column, Wt::EditRole);
    const std::string* text = boost::any_cast<std::string>(&cell);
    return text ? *text : none;
}

const DeviceKind* WDevViewList::kindOf(const Wt::WModelIndex& index) const {
    return deviceKindOf(textOf(index, Type, ""));
}

void WDevViewList::devType(const Wt::WModelIndex& index, Info_DeviceType& deviceType,
                           Info_DetailedDeviceType& detailedDeviceType) {
    const DeviceKind* kind = kindOf(index);
    deviceType = kind ? kind->type : Info_DeviceType::None;
    detailedDeviceType = kind ? kind->detail : Info_DetailedDeviceType::None;
}

void WDevViewList::devTypeSelected(Info_DeviceType& deviceType, Info_DetailedDeviceType& detailedDeviceType) {
    deviceType = Info_DeviceType::None;
    detailedDeviceType = Info_DetailedDeviceType::None;
    for (const Wt::WModelIndex& index : mTable->selectedIndexes()) {
        const DeviceKind* kind = kindOf(index);
        if (!kind) continue;
        if (deviceType == Info_DeviceType::None) {
            deviceType = kind->type;
            detailedDeviceType = kind->detail;
        } else if (deviceType != kind->type) {
            deviceType = Info_DeviceType::None;
            detailedDeviceType = Info_DetailedDeviceType::None;
            return;
        } else if (detailedDeviceType != kind->detail) {
            detailedDeviceType = Info_DetailedDeviceType::None; // and stays so: the next one differs from it
        }
    }
}

bool WDevViewList::selectionContainsConflictedSwx() {
    for (const Wt::WModelIndex& index : mTable->selectedIndexes()) {
        if (textOf(index, Status, "???").find("Conflict") != std::string::npos) return true;
    }
    return false;
}

void WDevViewList::selectEntryByRowIndex(int row, Wt::WAbstractItemView::ScrollHint scrollHint) {
    const Wt::WModelIndex index = mProxy->index(row, 0);
    mTable->select(index);
    mTable->scrollTo(index, scrollHint);
}

std::vector<unsigned int> WDevViewList::selectedZeqIndexes() const {
    std::vector<unsigned int> zeqIndexes;
    MirlUtil_modelIndexSetToZeqIndexVect(mTable->selectedIndexes(), mModel, mProxy, zeqIndexes);
    return zeqIndexes;
}

void WDevViewList::getZeqIndexVectByDev(const DeviceKind& kind, std::vector<unsigned int>& zeqIndexes) const {
    for (const Wt::WModelIndex& index : mTable->selectedIndexes()) {
        if (kindOf(index) != &kind) continue;
        unsigned int zeqIndex = 0;
        MirlUtil_modelIndexToZeqIndex(index, mModel, mProxy, zeqIndex);
        zeqIndexes.push_back(zeqIndex);
    }
}

SelectedDevice WDevViewList::deviceAt(const Wt::WModelIndex& index) const {
    SelectedDevice device{};
    const DeviceKind* kind = kindOf(index);
    device.type = kind ? kind->type : Info_DeviceType::None;
    MirlUtil_modelIndexToZeqIndex(index, mModel, mProxy, device.index);
    MirlUtil_modelIndexToEid(index, mModel, mProxy, Eid, device.eid);
    return device;
}

std::vector<SelectedDevice> WDevViewList::selectedDevices() const {
    std::vector<SelectedDevice> devices;
    for (const Wt::WModelIndex& index : mTable->selectedIndexes()) devices.push_back(deviceAt(index));
    return devices;
}

std::vector<SelectedDevice> WDevViewList::shownDevices() const {
    std::vector<SelectedDevice> devices;
    for (int row = 0; row < mProxy->rowCount(); ++row) devices.push_back(deviceAt(mProxy->index(row, 0)));
    return devices;
}

namespace {

bool isOfType(void* list, const Wt::WModelIndex& index, Info_DeviceType type) {
    const DeviceKind* kind = static_cast<WDevViewList*>(list)->kindOf(index);
    return kind && kind->type == type;
}

} // namespace

bool filterSwx(void* list, Wt::WModelIndex index) {
    return isOfType(list, index, Info_DeviceType::Switch);
}

bool filterTx(void* list, Wt::WModelIndex index) {
    return isOfType(list, index, Info_DeviceType::Transmitter);
}

bool filterRx(void* list, Wt::WModelIndex index) {
    return isOfType(list, index, Info_DeviceType::Receiver);
}

WAutoSizeTableView::RowFilter deviceFilterOf(Info_DeviceType type) {
    if (type == Info_DeviceType::Receiver) return filterRx;
    return type == Info_DeviceType::Transmitter ? filterTx : filterSwx;
}
