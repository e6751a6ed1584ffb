#include "tests/views/peripherals/MonitorsPage.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "views/peripherals/Edid.h"
#include "views/peripherals/WPeriphViewMonDecode.h"
#include "views/peripherals/WPeriphViewMonList.h"
#include "views/peripherals/WPushMonitorDialogTxList.h"

#include <Wt/WTextArea>

#include <algorithm>

MonitorsPage::MonitorsPage() : view(mainTab<WPeriphView>()) {
    setDetails(view->details());
    view->readFromDatabase(true, true);
}

RecordTable* MonitorsPage::listOf(const WPeriphView& view) {
    return view.list()->table();
}

void MonitorsPage::selectIn(RecordTable& table, const std::vector<std::string>& names, int column) {
    Wt::WModelIndexSet rows;
    for (int row = 0; row < table.proxy()->rowCount(); ++row) {
        const Wt::WModelIndex index = table.proxy()->index(row, 0);
        if (std::find(names.begin(), names.end(), table.textAt(index, column)) != names.end())
            rows.insert(index);
    }
    EXPECT_EQ(rows.size(), names.size());
    table.setSelectedIndexes(rows);
    table.selectionChanged().emit();
}

void MonitorsPage::transfer(MonitorAction action, const std::vector<std::string>& devices,
                            const std::function<void(MonitorTransfer&)>& before,
                            const std::function<void(MonitorTransfer&)>& behind) {
    answer([=](Wt::WDialog& dialog) {
        auto& moving = dynamic_cast<MonitorTransfer&>(dialog);
        const bool push = action == MonitorAction::Push;
        selectIn(*moving.list(), devices, push ? int(WPushMonitorDialogTxList::Name) : 2);
        bool left = false;
        dialog.finished().connect([&left](Wt::WDialog::DialogCode) { left = true; });
        if (before) before(moving);
        click(buttonIn(&dialog, push ? "Push" : "Pull"));
        if (behind) behind(moving);
        if (!left) dialog.reject();
    });
    clickAction(action);
}

std::vector<std::string> MonitorsPage::names() const {
    std::vector<std::string> all;
    const RecordTable& table = *listOf(*view);
    for (int row = 0; row < table.proxy()->rowCount(); ++row)
        all.push_back(table.textAt(table.proxy()->index(row, 0), WPeriphViewMonList::Name));
    return all;
}

std::string MonitorsPage::row(const std::string& name) const {
    const RecordTable& table = *listOf(*view);
    for (int row = 0; row < table.proxy()->rowCount(); ++row) {
        const Wt::WModelIndex index = table.proxy()->index(row, 0);
        if (table.textAt(index, WPeriphViewMonList::Name) != name) continue;
        std::string cells;
        for (int column = 1; column < WPeriphViewMonList::kColumnCount; ++column)
            cells += (column == 1 ? "" : "|") + table.textAt(index, column);
        return cells;
    }
    return "no row " + name;
}

Wt::WPushButton* MonitorsPage::actionButton(MonitorAction action) const {
    return view->actions()->cell(static_cast<std::size_t>(action))->actionButton();
}

std::string MonitorsPage::actions() const {
    std::string enabled;
    for (const MonitorAction action : {MonitorAction::Delete, MonitorAction::Push, MonitorAction::Pull})
        enabled += actionButton(action)->isDisabled() ? '.' : 'X';
    return enabled;
}

std::string MonitorsPage::report() const {
    auto* decode = dynamic_cast<WPeriphViewMonDecode*>(view->details()->tabWidget(0)->widget(1));
    return widgetsIn<Wt::WTextArea>(decode).at(0)->text().toUTF8();
}

std::string MonitorsPage::shownBy(unsigned txIndex) {
    static int pulls = 0;
    const std::string name = "look " + std::to_string(++pulls);
    std::vector<std::string> errors;
    char bytes[256] = {};
    if (Db::db.pullEdidFromDevice("tx", txIndex, name, "", errors) != 0 ||
        Db::db.getEdidByName(name, bytes, sizeof bytes, errors) != 0)
        return "not known";
    Edid edid;
    edid.populate(bytes, sizeof bytes);
    std::string code;
    edid.productCodeGet(code);
    return code;
}
