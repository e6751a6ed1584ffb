#pragma once

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/ActionColumn.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "shell/WallClock.h"
#include "tests/views/PageTest.h"
#include "views/sessions/WEstabSesDialog.h"
#include "views/sessions/WEstabSesRxTable.h"
#include "views/sessions/WEstabSesTxTable.h"
#include "views/sessions/WEstabSesUsrTable.h"
#include "views/sessions/WSesView.h"
#include "views/sessions/WSesViewList.h"
#include "widgets/WSesMode.h"

#include <Wt/WCheckBox>
#include <Wt/WStackedWidget>

#include <algorithm>

/// The Sessions page of "admin" on the demo installation: eight sessions.
class SessionsPage : public PageTest {
protected:
    SessionsPage() : view(mainTab<WSesView>()) {
        setDetails(view->details());
        view->readFromDatabase(true);
        tick(); // from here the page knows the counters of changes
    }

    RecordTable& table() const { return *view->list()->table(); }
    /// The list's lines, each "user|receiver|transmitter|mode|duration".
    std::vector<std::string> lines() const { return linesOf(table()); }
    std::string line(const std::string& part) const {
        for (const std::string& each : lines())
            if (each.find(part) != std::string::npos) return each;
        return "";
    }
    /// By the records' numbers.
    void select(const std::vector<unsigned>& sessions) {
        Wt::WModelIndexSet rows;
        for (const unsigned record : sessions) rows.insert(table().rowOf(record));
        table().setSelectedIndexes(rows);
        table().selectionChanged().emit();
    }
    static void pick(RecordTable& list, unsigned record) {
        const Wt::WModelIndex row = list.rowOf(record);
        ASSERT_TRUE(row.isValid()) << record << " is not offered";
        list.select(row);
        list.selectionChanged().emit();
    }
    static bool offers(const RecordTable& list, unsigned record) { return list.rowOf(record).isValid(); }
    static void chooseMode(WEstabSesDialog& dialog, Info_ConnectionMode mode) {
        dialog.mode()->setCurrentIndex(mode == Info_ConnectionMode::Share ? 0 : 1);
        dialog.mode()->changed().emit();
    }
    /// Answers the Connect dialog; `meanwhile` happens before its button is pressed.
    void connectWith(
        unsigned user, unsigned rx, unsigned tx, Info_ConnectionMode mode,
        const std::function<void(WEstabSesDialog&)>& meanwhile = [](WEstabSesDialog&) {}) {
        answer([=](Wt::WDialog& shownDialog) {
            auto& dialog = dynamic_cast<WEstabSesDialog&>(shownDialog);
            chooseMode(dialog, mode);
            pick(*dialog.users(), user);
            pick(*dialog.receivers(), rx);
            pick(*dialog.transmitters(), tx);
            meanwhile(dialog);
            click(buttonIn(&dialog, "Connect"));
        });
    }
    Wt::WPushButton* button(SesAction action) const { return view->actionCell(action)->actionButton(); }
    /// The second behind a disconnect has passed.
    void later() { view->readFromDatabase(true); }
    void tick() { view->refreshTimerTimeout(); }
    bool detailsShown() const {
        return !dynamic_cast<Wt::WWidget*>(view->details()->tabWidget(0)->parent())->isHidden();
    }
    /// Values of the details, from the top.
    std::vector<std::string> details() const {
        std::vector<std::string> texts;
        Wt::WTable* shownTable = widgetsIn<Wt::WTable>(view->details()).back();
        for (int row = 1; row < shownTable->rowCount(); ++row) {
            texts.push_back(textIn(shownTable->elementAt(row, 1)));
            if (texts.back().ends_with('\n')) texts.back().pop_back(); // behind each widget
        }
        return texts;
    }

    WSesView* view;
};
