#include "frame/DetailsTabs.h"

#include "frame/Confirm.h"
#include "frame/ObjListParts.h"
#include "frame/Place.h"
#include "frame/StatusTab.h"
#include "frame/WAutoSizeTableView.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WStackedWidget>
#include <Wt/WTabWidget>

#include <algorithm>

namespace {

constexpr int kTabMargin = 8; // pixels

} // namespace

DetailsTabs::DetailsTabs(const Wt::WString& title, HeightType heightType, int height, int pages,
                         Wt::WContainerWidget* parent)
    : WCollapsingContextPanel(title, heightType, height, parent), mStack(new Wt::WStackedWidget) {
    for (int i = 0; i < pages; ++i) {
        auto* page = new Wt::WTabWidget;
        page->contentsStack()->setTabIndex(0); // pages without fields scroll by keyboard too
        page->setStyleClass("mirl-details-tab");
        mStack->addWidget(page);
        mPages.push_back(page);
    }
    mStack->setOverflow(Wt::WContainerWidget::OverflowAuto);
    setContent(mStack, 1, Wt::AlignJustify);
}

WSettingsTab* DetailsTabs::addTab(int page, const char* title, Wt::WWidget* widget, ObjListParts* list) {
    widget->setMargin(Wt::WLength(kTabMargin));
    Wt::WMenuItem* item = tabWidget(page)->addTab(widget, tr(title), Wt::WTabWidget::LazyLoading);
    auto* settings = dynamic_cast<WSettingsTab*>(widget);
    mTabs.push_back({title, widget, settings, dynamic_cast<StatusTab*>(widget)});
    if (!settings) return nullptr;
    settings->registerDetailsMenuItem(item);
    if (list) {
        settings->registerTableView(list->table());
        settings->registerFilterField(list->filterField());
        settings->registerLockNote(list->lockNote());
    }
    return settings;
}

void DetailsTabs::askToCancel(WSettingsTab* tab) {
    static constexpr Confirmation kDiscard = {.flag = nullptr,
                                              .title = "[RSnnn]Warning",
                                              .message = "page.discard.question",
                                              .proceed = "[RSnnn]Discard changes",
                                              .focusOnCancel = true};
    if (tab->cancelButton()->isEnabled() && confirm(kDiscard))
        tab->cancelButton()->clicked().emit(Wt::WMouseEvent());
}

void DetailsTabs::showPage(int page) {
    mStack->setCurrentIndex(page);
}

int DetailsTabs::shownPage() const {
    return mStack->currentIndex();
}

int DetailsTabs::shownTab() const {
    const Wt::WTabWidget* page = tabWidget(shownPage());
    if (page->count() == 0) return -1;
    const Wt::WWidget* shown = page->currentWidget();
    const auto tab =
        std::find_if(mTabs.begin(), mTabs.end(), [&](const Tab& t) { return t.widget == shown; });
    return tab == mTabs.end() ? -1 : static_cast<int>(tab - mTabs.begin());
}

std::string DetailsTabs::shownTabWord() const {
    const int tab = shownTab();
    return tab < 0 ? "" : Place::word(mTabs[static_cast<std::size_t>(tab)].title);
}

void DetailsTabs::showTabOf(std::string_view word) {
    Wt::WTabWidget* page = tabWidget(shownPage());
    for (int index = 0; index < page->count(); ++index) {
        const Wt::WWidget* shown = page->widget(index);
        const auto tab =
            std::find_if(mTabs.begin(), mTabs.end(), [&](const Tab& t) { return t.widget == shown; });
        if (tab != mTabs.end() && Place::word(tab->title) == word && index != page->currentIndex())
            return page->setCurrentIndex(index);
    }
}

WSettingsTab* DetailsTabs::shownSettingsTab() const {
    const int tab = shownTab();
    return tab < 0 ? nullptr : settingsTab(static_cast<std::size_t>(tab));
}

bool DetailsTabs::hasChanged() {
    return std::any_of(mTabs.begin(), mTabs.end(),
                       [](const Tab& tab) { return tab.settings && tab.settings->hasChanged(); });
}

void DetailsTabs::readFromDatabase(bool force, const std::vector<unsigned>& indexes, bool cancelled) {
    const int shown = shownTab();
    if (shown < 0) return;
    const Tab& tab = mTabs[static_cast<std::size_t>(shown)];
    if (tab.settings)
        tab.settings->readFromDatabase(force, indexes, cancelled);
    else if (tab.status)
        tab.status->readFromDatabase(indexes);
}
