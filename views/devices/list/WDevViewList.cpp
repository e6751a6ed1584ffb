// What the device list's rows and its selection stand for.

#include "views/devices/list/WDevViewList.h"

#include "frame/MirlUtil.h"
#include "frame/WNumericSortFilterProxyModel.h"

const DeviceKind* WDevViewList::kindOf(const Wt::WModelIndex& index) const {
    return deviceKindOf(mTable->textAt(index, Type));
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
        if (mTable->textAt(index, Status).find("Conflict") != std::string::npos) return true;
    }
    return false;
}

void WDevViewList::selectEntryByRowIndex(int row, Wt::WAbstractItemView::ScrollHint scrollHint) {
    const Wt::WModelIndex index = mProxy->index(row, 0);
    mTable->select(index);
    mTable->scrollTo(index, scrollHint);
}

std::vector<unsigned int> WDevViewList::selectedZeqIndexes() const {
    return mTable->selectedZeqIndexes();
}

void WDevViewList::getZeqIndexVectByDev(const DeviceKind& kind, std::vector<unsigned int>& zeqIndexes) const {
    for (const Wt::WModelIndex& index : mTable->selectedIndexes()) {
        if (kindOf(index) == &kind) zeqIndexes.push_back(mTable->zeqIndexAt(index));
    }
}

SelectedDevice WDevViewList::deviceAt(const Wt::WModelIndex& index) const {
    SelectedDevice device{};
    const DeviceKind* kind = kindOf(index);
    device.type = kind ? kind->type : Info_DeviceType::None;
    device.index = mTable->zeqIndexAt(index);
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

std::vector<HitRecord> WDevViewList::shownOffline() const {
    const std::string offline = tr("[RSnnn]Offline").toUTF8(); // what more a status says stands behind it
    std::vector<HitRecord> devices;
    for (int row = 0; row < mProxy->rowCount(); ++row) {
        const Wt::WModelIndex index = mProxy->index(row, 0);
        if (mTable->textAt(index, Status).starts_with(offline))
            devices.push_back({mTable->textAt(index, Name), ""});
    }
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
