#include "tests/views/devices/DevicesPage.h"

#include "frame/WAutoSizeTableView.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "views/devices/list/WDevViewList.h"

#include <boost/any.hpp>

#include <algorithm>

DevicesPage::DevicesPage() : view(mainTab<WDevView>()) {
    setDetails(view->details());
    view->readFromDatabase(true, true);
}

void DevicesPage::select(const std::vector<std::string>& names) {
    const WNumericSortFilterProxyModel* proxy = view->list()->proxy();
    Wt::WModelIndexSet rows;
    for (int row = 0; row < proxy->rowCount(); ++row) {
        const auto name = boost::any_cast<std::string>(proxy->data(row, WDevViewList::Name, Wt::EditRole));
        if (std::find(names.begin(), names.end(), name) != names.end()) rows.insert(proxy->index(row, 0));
    }
    EXPECT_EQ(rows.size(), names.size());
    view->list()->table()->setSelectedIndexes(rows);
    view->list()->table()->selectionChanged().emit();
}

std::vector<std::string> DevicesPage::selected() const {
    std::vector<std::string> names;
    for (const Wt::WModelIndex& index : view->list()->table()->selectedIndexes())
        names.push_back(boost::any_cast<std::string>(
            view->list()->proxy()->data(index.row(), WDevViewList::Name, Wt::EditRole)));
    return names;
}

std::string DevicesPage::cell(const std::string& name, int column) const {
    const WNumericSortFilterProxyModel* proxy = view->list()->proxy();
    for (int row = 0; row < proxy->rowCount(); ++row) {
        if (boost::any_cast<std::string>(proxy->data(row, WDevViewList::Name, Wt::EditRole)) == name)
            return boost::any_cast<std::string>(proxy->data(row, column, Wt::EditRole));
    }
    return "no row " + name;
}

Wt::WPushButton* DevicesPage::cellButton(DeviceAction action) const {
    return view->actionCell(action)->actionButton();
}

std::string DevicesPage::actions() const {
    std::string enabled;
    for (int i = 0; i < kDeviceActionCount; ++i)
        enabled += cellButton(DeviceAction(i))->isDisabled() ? '.' : 'X';
    return enabled;
}
