#pragma once

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "db/ZeqRows.h"
#include "frame/ActionColumn.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "shell/Security.h"
#include "shell/WallClock.h"
#include "tests/views/PageTest.h"
#include "views/users/WUsrView.h"
#include "views/users/list/WUsrViewList.h"
#include "views/users/tabs/WUsrViewFavTargets.h"
#include "views/users/tabs/WUsrViewOsdFx.h"
#include "views/users/tabs/WUsrViewStatus.h"
#include "views/users/tabs/WUsrViewTargets.h"
#include "widgets/WChangePassword.h"
#include "widgets/WLineEditZeq.h"

#include <Wt/WCheckBox>

#include <algorithm>
#include <thread>

/// The Users page of "admin" on the demo installation.
class UsersPage : public PageTest {
protected:
    UsersPage() : view(mainTab<WUsrView>()) {
        setDetails(view->details());
        view->readFromDatabase(true, true);
    }

    RecordTable& table() const { return *view->list()->table(); }
    void select(const std::vector<std::string>& names) {
        Wt::WModelIndexSet rows;
        for (int row = 0; row < table().proxy()->rowCount(); ++row) {
            const Wt::WModelIndex index = table().proxy()->index(row, 0);
            if (std::ranges::count(names, table().textAt(index, WUsrViewList::Name)) > 0) rows.insert(index);
        }
        EXPECT_EQ(rows.size(), names.size());
        table().setSelectedIndexes(rows);
        table().selectionChanged().emit();
    }
    std::string row(const std::string& name) const {
        for (int i = 0; i < table().proxy()->rowCount(); ++i) {
            const Wt::WModelIndex index = table().proxy()->index(i, 0);
            if (table().textAt(index, WUsrViewList::Name) != name) continue;
            std::string cells;
            for (int column = 1; column < WUsrViewList::kColumnCount; ++column)
                cells += table().textAt(index, column) + "|";
            return cells;
        }
        return "";
    }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (int i = 0; i < table().proxy()->rowCount(); ++i)
            all.push_back(table().textAt(table().proxy()->index(i, 0), WUsrViewList::Name));
        return all;
    }
    void clickAction(UserAction action) { click(view->actionCell(action)->actionButton()); }
    /// X for each enabled action (new, login, logout, delete), . for the others.
    std::string actions() const {
        std::string enabled;
        for (const UserAction action :
             {UserAction::New, UserAction::Login, UserAction::Logout, UserAction::Delete})
            enabled += view->actionCell(action)->actionButton()->isDisabled() ? '.' : 'X';
        return enabled;
    }
    std::string buttons() const {
        return std::string(tab().saveButton()->isDisabled() ? "." : "S") +
               (tab().cancelButton()->isDisabled() ? "." : "C");
    }
    /// Presses New on the page of a session of its own, looks, and ends that session.
    static void newUserInAnotherSession(const std::function<void(WUsrView&)>& look) {
        std::thread([&] {
            AppSession other;
            other.logIn("admin", ZeqdProcess::kAdminPassword);
            WUsrView& page = *mainTabOf<WUsrView>(other);
            page.readFromDatabase(true, true);
            page.newUsrActionButtonClicked();
            look(page);
        }).join();
    }
    void tick() { view->refreshTimerTimeout(); }
    void typeInto(WLineEditZeq* field, const std::string& text) {
        field->Wt::WLineEdit::setText(text);
        field->blurred().emit();
    }
    WLineEditZeq* password(std::size_t which) const {
        std::size_t seen = 0;
        for (auto* edit : widgetsIn<WLineEditZeq>(&tab()))
            if (edit->key() == std::string("password") && seen++ == which) return edit;
        return nullptr;
    }
    WChangePassword& change() const { return *widgetsIn<WChangePassword>(&tab()).front(); }
    TwoListMover& mover() const { return *dynamic_cast<UsrMoverTab&>(tab()).mover(); }
    static std::vector<unsigned> shownIn(const MoverList& list) {
        std::vector<unsigned> all;
        for (int i = 0; i < list.proxy()->rowCount(); ++i)
            all.push_back(list.zeqIndexAt(list.proxy()->index(i, 0)));
        std::ranges::sort(all);
        return all;
    }
    void selectTargets(MoverList& list, const std::vector<unsigned>& indexes) {
        Wt::WModelIndexSet rows;
        for (const unsigned index : indexes) rows.insert(list.rowOf(index));
        list.setSelectedIndexes(rows);
        list.selectionChanged().emit();
    }
    static std::vector<unsigned> storedTargets(unsigned user) {
        TxPermissions model;
        model.populate({user});
        return model.getTargetsForUser(user)->targets;
    }
    static std::vector<unsigned> storedFavorites(unsigned user) {
        TxFavorites model;
        model.populate({user});
        return model.getTargetsForUser(user)->favorites;
    }
    static bool canLogIn(const char* name, const char* word) {
        unsigned index = 0;
        bool initialized = false;
        MirlSession made;
        std::vector<std::string> errors;
        const bool can = Security_loginMirlUser(name, word, index, initialized, made) == 0;
        if (can) Security_logoutMirlUser(index, made, errors);
        return can;
    }

    WUsrView* view;
};
