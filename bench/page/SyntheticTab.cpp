#include "page/SyntheticTab.h"

#include <Wt/WHBoxLayout>
#include <Wt/WLabel>
#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WTabWidget>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WTimer>
#include <Wt/WVBoxLayout>

#include <string>

namespace {

constexpr int kAccordionCells = 7;
constexpr int kRows = 200;
constexpr int kDetailTabs = 5;
constexpr int kFields = 12;
constexpr int kRefreshMs = 2000;
constexpr int kListHeightPx = 300;

Wt::WTable* makeFields() {
    auto* table = new Wt::WTable;
    for (int field = 0; field < kFields; ++field) {
        auto* label = new Wt::WLabel("Attribute " + std::to_string(field + 1), table->elementAt(field, 0));
        auto* edit = new Wt::WLineEdit("Value of this attribute", table->elementAt(field, 1));
        edit->setMaxLength(64);
        edit->setToolTip("Up to 64 printable characters");
        label->setBuddy(edit);
    }
    return table;
}

} // namespace

SyntheticTab::SyntheticTab() : mTimer(new Wt::WTimer(this)) {
    auto* columns = new Wt::WHBoxLayout;
    columns->addWidget(makeAccordion());
    auto* column = new Wt::WVBoxLayout;
    mList.view().setHeight(kListHeightPx);
    column->addWidget(&mList.view());
    column->addWidget(makeDetails(), 1);
    column->setResizable(0);
    columns->addLayout(column, 1);
    setLayout(columns);
    mList.refill(kRows);
    mTimer->setInterval(kRefreshMs);
    mTimer->timeout().connect(this, &SyntheticTab::refresh);
}

void SyntheticTab::startRefresh() {
    mTimer->start();
}

void SyntheticTab::refresh() {
    mList.refill(kRows);
}

Wt::WWidget* SyntheticTab::makeAccordion() {
    auto* accordion = new Wt::WTable;
    for (int cell = 0; cell < kAccordionCells; ++cell) {
        auto* title = new Wt::WContainerWidget(accordion->elementAt(2 * cell, 0));
        title->setStyleClass("bench-title");
        new Wt::WText("Action " + std::to_string(cell + 1), title);
        auto* body = new Wt::WTable(accordion->elementAt(2 * cell + 1, 0));
        title->clicked().connect(body, &Wt::WWidget::hide);
        auto* button = new Wt::WPushButton("Act", body->elementAt(0, 0));
        button->disable();
        new Wt::WText("Does what the button says for one or more selected devices.", Wt::PlainText,
                      body->elementAt(1, 0));
    }
    return accordion;
}

Wt::WWidget* SyntheticTab::makeDetails() {
    auto* details = new Wt::WTabWidget;
    for (int tab = 0; tab < kDetailTabs; ++tab)
        details->addTab(makeFields(), Wt::WString("Details {1}").arg(tab + 1));
    return details;
}
