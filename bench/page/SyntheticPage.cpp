#include "page/SyntheticPage.h"

#include "page/SyntheticTab.h"

#include <Wt/WContainerWidget>
#include <Wt/WDialog>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTabWidget>
#include <Wt/WText>

namespace {

constexpr int kTabs = 8;

} // namespace

SyntheticPage::SyntheticPage(const Wt::WEnvironment& environment) : Wt::WApplication(environment) {
    setTitle("Synthetic page");
    auto* header = new Wt::WContainerWidget(root());
    auto* count = new Wt::WPushButton("Count", header);
    count->setId("count");
    count->clicked().connect(this, &SyntheticPage::count);
    mCounted = new Wt::WText("0", header);
    mCounted->setId("counted");
    auto* ask = new Wt::WPushButton("Ask", header);
    ask->setId("ask");
    ask->clicked().connect(this, &SyntheticPage::ask);

    auto* tabs = new Wt::WTabWidget(root());
    for (int tab = 0; tab < kTabs; ++tab) {
        auto* page = new SyntheticTab;
        tabs->addTab(page, Wt::WString("Tab {1}").arg(tab + 1));
        if (tab == 0) page->startRefresh();
    }
}

void SyntheticPage::count() {
    mCounted->setText(Wt::WString("{1}").arg(++mCount));
}

void SyntheticPage::ask() {
    Wt::WDialog dialog("A question");
    dialog.rejectWhenEscapePressed();
    new Wt::WText("Shall the device be restarted?", dialog.contents());
    new Wt::WLineEdit(dialog.contents());
    auto* close = new Wt::WPushButton("Close", dialog.footer());
    close->setId("close");
    close->clicked().connect(&dialog, &Wt::WDialog::accept);
    dialog.exec();
}
