#pragma once

#include "tests/frame/WidgetSearch.h"
#include "tests/shell/ShellTest.h"
#include "views/devices/page/WDevView.h"
#include "views/devices/page/WDevViewDetails.h"
#include "widgets/WSettingsTab.h"
#include "widgets/WWidgetZeq.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// The Devices tab of an administrator, on the demo installation of a service of its own.
class DevicesPage : public ShellTest {
protected:
    DevicesPage();
    ~DevicesPage() override;

    // The user's doing.

    /// Selects the rows of these names, and no others.
    void select(const std::vector<std::string>& names);
    /// Brings a tab of the page on show to the front.
    void showTab(const std::string& title);
    /// Types into the tab's field of that key and leaves it.
    void type(const std::string& key, const std::string& text);
    /// Chooses an item of the tab's box of that key.
    void choose(const std::string& key, int item);
    void clickAction(DeviceAction action) { click(cellButton(action)); }
    void save() { click(tab().saveButton()); }
    void cancel() { click(tab().cancelButton()); }
    /// The refresh timer fires.
    void tick() { view->refreshTimerTimeout(); }

    /// What the user does with the next dialogs, in order. A dialog without an answer fails the test.
    void answer(std::function<void(Wt::WDialog&)> what) { mAnswers.push_back(std::move(what)); }
    void answerWith(const std::string& button);
    /// Texts of the dialogs that were shown, one each.
    std::vector<std::string> shown;

    // What there is to see.

    std::vector<std::string> selected() const;                   // names, in the list's order
    std::string cell(const std::string& name, int column) const; // of the list's row of that name
    std::string actions() const;                                 // X for each enabled one, . for the others
    WSettingsTab& tab() const;                                   // the one on show
    std::string text(const std::string& key) const;              // of the tab's field of that key
    template <class Widget>
    Widget* field(const std::string& key) const {
        for (Widget* widget : widgetsIn<Widget>(view->details()))
            if (isOnShow(widget) && keyOf(widget) == key) return widget;
        ADD_FAILURE() << "no field " << key;
        return nullptr;
    }

    /// A value of the database.
    static std::string stored(const char* resource, unsigned index, const char* key);
    static void remove(const char* resource, unsigned index);

    AppSession session;
    WDevView* view = nullptr;

private:
    Wt::WPushButton* cellButton(DeviceAction action) const;
    Wt::WWidget* shownTab() const;
    bool isOnShow(Wt::WWidget* widget) const;
    static std::string keyOf(Wt::WWidget* widget);
    void dialogExecuted(Wt::WDialog* dialog);

    std::deque<std::function<void(Wt::WDialog&)>> mAnswers;
    Wt::Signals::connection mConnection;
};
