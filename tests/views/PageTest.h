#pragma once

#include "frame/DetailsTabs.h"
#include "frame/RecordTable.h"
#include "tests/frame/WidgetSearch.h"
#include "tests/shell/ShellTest.h"
#include "widgets/WSettingsTab.h"
#include "widgets/WWidgetZeq.h"

#include <Wt/WTabWidget>

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// A page of an administrator, on the demo installation of a service of its own.
class PageTest : public ShellTest {
protected:
    PageTest();
    ~PageTest() override;

    // The user's doing.

    /// Brings a tab of the details pane's page on show to the front.
    void showTab(const std::string& title);
    /// Types into the tab's field of that key and leaves it.
    void type(const std::string& key, const std::string& text);
    /// Chooses an item of the tab's box of that key.
    void choose(const std::string& key, int item);
    void save() { click(tab().saveButton()); }
    void cancel() { click(tab().cancelButton()); }

    /// What the user does with the next dialogs, in order. A dialog without an answer fails the test.
    void answer(std::function<void(Wt::WDialog&)> what) { mAnswers.push_back(std::move(what)); }
    void answerWith(const std::string& button);
    /// Texts of the dialogs that were shown, one each.
    std::vector<std::string> shown;

    // What there is to see.

    WSettingsTab& tab() const;                      // the one on show
    std::string text(const std::string& key) const; // of the tab's field of that key
    template <class Widget>
    Widget* field(const std::string& key) const {
        for (Widget* widget : widgetsIn<Widget>(shownTab()))
            if (keyOf(widget) == key) return widget;
        ADD_FAILURE() << "no field " << key;
        return nullptr;
    }

    /// What a list shows, sorted: the texts of a row's cells behind the hidden one, with "|" between them.
    static std::vector<std::string> linesOf(const RecordTable& table);

    /// A value of the database; the index 0 is a singleton's.
    static std::string stored(const char* resource, unsigned index, const char* key);
    static void remove(const char* resource, unsigned index);
    /// This Switch raises an alert.
    static void raise(const std::string& message, const char* severity = "warning");

    /// The page of the main tabs, once it has been found; its details, once the page has told them.
    template <class View>
    View* mainTab() {
        return mainTabOf<View>(session);
    }
    template <class View>
    static View* mainTabOf(AppSession& of) {
        Wt::WTabWidget* tabs = of.probe().tabs();
        for (int i = 0; i < tabs->count(); ++i)
            if (auto* view = dynamic_cast<View*>(tabs->widget(i))) return view;
        throw std::runtime_error("no such main tab");
    }
    void setDetails(DetailsTabs* details) { mDetails = details; }

    AppSession session;

private:
    Wt::WWidget* shownTab() const;
    static std::string keyOf(Wt::WWidget* widget);
    void dialogExecuted(Wt::WDialog* dialog);

    DetailsTabs* mDetails = nullptr;
    std::deque<std::function<void(Wt::WDialog&)>> mAnswers;
    Wt::Signals::connection mConnection;
};
