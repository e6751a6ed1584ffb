#pragma once

#include "frame/NamesText.h"
#include "frame/WAutoSizeTableView.h"
#include "frame/WObjListContextPanel.h"
#include "views/devices/list/SelectedDevice.h"

#include <Wt/WAbstractItemView>
#include <Wt/WModelIndex>
#include <Wt/WString>

#include <vector>

/// List of every Transmitter, Receiver and Switch of the system. Record indexes of the three kinds overlap:
/// what a row stands for is its index and its Type text together.
class WDevViewList : public WObjListContextPanel {
public:
    enum Column { Index, Eid, Name, Type, Status, Firmware };
    static constexpr int kColumnCount = 6;

    explicit WDevViewList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// Rebuilds the list: Transmitters, Receivers, Switches, in four to five exchanges whatever their number.
    /// A group that cannot be read is left out. The selection is lost; the filter stays.
    void readFromDatabase() override;

    /// False when the last rebuild lacks what the service did not answer: it is due again.
    bool isComplete() const { return mComplete; }

    /// Kinds of the whole selection: None for nothing and for a mix. A selection of one type with several
    /// detailed types has the detailed type None.
    virtual void devTypeSelected(Info_DeviceType& deviceType, Info_DetailedDeviceType& detailedDeviceType);

    /// Kinds of one row of the proxy; None for a Type text that is no device's.
    virtual void devType(const Wt::WModelIndex& index, Info_DeviceType& deviceType,
                         Info_DetailedDeviceType& detailedDeviceType);

    /// Whether a selected row's status tells of a conflict.
    virtual bool selectionContainsConflictedSwx();

    /// Selects the row of the proxy, beside what is selected, and scrolls to it.
    virtual void selectEntryByRowIndex(int row, Wt::WAbstractItemView::ScrollHint scrollHint);

    /// Record indexes of the selected rows, in the selection's order.
    std::vector<unsigned int> selectedZeqIndexes() const;
    /// Appends the record indexes of the selected rows of a kind.
    void getZeqIndexVectByDev(const DeviceKind& kind, std::vector<unsigned int>& zeqIndexes) const;

    /// The selected rows in the selection's order; the rows that the filter lets show, from the top.
    std::vector<SelectedDevice> selectedDevices() const;
    std::vector<SelectedDevice> shownDevices() const;
    /// Those of the shown rows whose status reads offline, in words.
    std::vector<HitRecord> shownOffline() const;

    /// Kind of a row of the proxy, null for a Type text that is no device's.
    const DeviceKind* kindOf(const Wt::WModelIndex& index) const;

private:
    SelectedDevice deviceAt(const Wt::WModelIndex& index) const;

    bool mComplete = true;
    Wt::WString mFilter; // the last one that was set
};

// Filters for WAutoSizeTableView::setSelectedFilteredZeqIndexes; the context is the WDevViewList.
bool filterSwx(void* list, Wt::WModelIndex index);
bool filterTx(void* list, Wt::WModelIndex index);
bool filterRx(void* list, Wt::WModelIndex index);

/// The filter of a type; not for None.
WAutoSizeTableView::RowFilter deviceFilterOf(Info_DeviceType type);
