#pragma once

#include "frame/WCollapsingContextPanel.h"
#include "widgets/WSettingsTab.h"

#include <Wt/WPushButton>

#include <boost/bind/bind.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Wt {
class WStackedWidget;
class WTabWidget;
} // namespace Wt

class ObjListParts;
class StatusTab;

/// One tab of a details pane. Rows stand in the order of the enumeration `Tab`; titles are message keys. A tab is a
/// WSettingsTab, or a StatusTab. Handlers that are left out are those of EditingPage.
///
///     constexpr DetailsTabRow<WDevView, DevTab, DevDetailsPage> kTabs[] = {
///         {DevTab::RxAttribs, DevDetailsPage::Receiver, "[RSnnn]Attributes", makeTab<WDevViewRxAttribs>}, ...
///     static_assert(rowsInOrder(kTabs));
template <class View, class Tab, class Page = int>
struct DetailsTabRow {
    Tab value;
    Page page; // of the pane, counted from 0
    const char* title;
    Wt::WWidget* (*make)();
    void (View::*save)() = nullptr;
    void (View::*cancel)() = nullptr;
    void (View::*changed)() = nullptr;
};

template <class Tab>
Wt::WWidget* makeTab() {
    return new Tab;
}

/// The pane of a page in which the selected records are shown and edited: one page of tabs, or several of which one
/// is on show.
class DetailsTabs : public WCollapsingContextPanel {
public:
    /// `height` in pixels. Page 0 is on show at first.
    DetailsTabs(const Wt::WString& title, HeightType heightType, int height, int pages,
                Wt::WContainerWidget* parent = nullptr);

    /// Adds the tabs in their order. `list`, if any, is locked while one of them has unsaved edits; it and the view
    /// live as long as this. Rows are constants.
    template <class View, class Row, std::size_t N>
    void addTabs(View* view, const Row (&rows)[N], ObjListParts* list) {
        for (const Row& row : rows) {
            WSettingsTab* tab = addTab(static_cast<int>(row.page), row.title, row.make(), list);
            if (!tab) continue;
            connect(tab->saveButton()->clicked(), view, row.save, [view, tab] { view->save(*tab); });
            connect(tab->cancelButton()->clicked(), view, row.cancel, [view, tab] { view->cancel(*tab); });
            connect(tab->contentChanged(), view, row.changed, [view] { view->contentChangedHandler(); });
            tab->escapePressed().connect(boost::bind(&DetailsTabs::askToCancel, tab));
        }
    }

    void showPage(int page);
    int shownPage() const;
    /// Tabs of a page. Its current-changed signal tells that another tab is on show.
    Wt::WTabWidget* tabWidget(int page) const { return mPages[static_cast<std::size_t>(page)]; }

    /// Row number of the tab on show; -1 when its page has none.
    int shownTab() const;
    /// The tab on show as a word of the address (Place::word() of its title); empty when there is none.
    std::string shownTabWord() const;
    /// Shows the tab of the page on show that has the word; none has it: nothing.
    void showTabOf(std::string_view word);

    /// The tab on show if it can be edited, else null.
    WSettingsTab* shownSettingsTab() const;
    /// The settings tab of a row; null when that tab only shows.
    WSettingsTab* settingsTab(std::size_t row) const { return mTabs[row].settings; }

    /// Whether a tab has unsaved edits, on show or not.
    virtual bool hasChanged();

    /// Has the tab on show read itself, and no other one. `cancelled`: edits are thrown away.
    virtual void readFromDatabase(bool force, const std::vector<unsigned>& indexes, bool cancelled);

private:
    struct Tab {
        const char* title;   // message key
        Wt::WWidget* widget; // owned by its page
        WSettingsTab* settings;
        StatusTab* status;
    };

    /// Escape throws edits away as Cancel does, but is pressed in haste: asks first.
    static void askToCancel(WSettingsTab* tab);
    WSettingsTab* addTab(int page, const char* title, Wt::WWidget* widget, ObjListParts* list);

    template <class Signal, class View, class Otherwise>
    static void connect(Signal& signal, View* view, void (View::*handler)(), Otherwise otherwise) {
        if (handler)
            signal.connect(view, handler);
        else
            signal.connect(otherwise);
    }

    Wt::WStackedWidget* mStack;
    std::vector<Wt::WTabWidget*> mPages;
    std::vector<Tab> mTabs; // by row
};
