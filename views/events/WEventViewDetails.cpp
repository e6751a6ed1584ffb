#include "views/events/WEventViewDetails.h"

#include "db/TimeZone.h"

#include <Wt/WStackedWidget>
#include <Wt/WTabWidget>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WVBoxLayout>

namespace {

// Pixels.
constexpr int kHeight = 200;
constexpr int kMargin = 8;
constexpr int kSpacing = 10;

constexpr const char* kRows[] = {"[RSnnn]Type", "[RSnnn]Date and Time", "[RSnnn]Originator EID",
                                 "[RSnnn]Message"};
constexpr int kDateRow = 2; // below the heading

} // namespace

WEventViewMsgDetails::WEventViewMsgDetails(Wt::WContainerWidget* parent) : Wt::WTable(parent) {
    setHeaderCount(1);
    int column = 0;
    for (const char* heading : {"[RSnnn]Field", "[RSnnn]Value"}) {
        Wt::WTableCell* cell = elementAt(0, column++);
        cell->setStyleClass("mirl-attribute-table-heading");
        new Wt::WText(tr(heading), cell);
    }
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        const int row = static_cast<int>(i) + 1;
        auto* label = new Wt::WText(tr(kRows[i]), elementAt(row, 0));
        label->setStyleClass("mirl-attribute-table-label");
        Wt::WTableCell* cell = elementAt(row, 1);
        cell->setStyleClass("mirl-attribute-table-read-only-cell");
        mTexts[i] = new Wt::WText(cell);
        mTexts[i]->setTextFormat(Wt::PlainText);
    }
    elementAt(kDateRow, 1)->setToolTip(tr("events.zone").arg(TimeZone_text()));
}

void WEventViewMsgDetails::setContent(const Wt::WString& type, const Wt::WString& date,
                                      const Wt::WString& eid, const Wt::WString& message) {
    const Wt::WString* texts[] = {&type, &date, &eid, &message};
    for (std::size_t i = 0; i < mTexts.size(); ++i) mTexts[i]->setText(*texts[i]);
}

WEventViewDetails::WEventViewDetails(Wt::WContainerWidget* parent)
    : WCollapsingContextPanel(tr("[RSnnn]Event Details"), FixedHeight, kHeight, parent),
      mMessage(new WEventViewMsgDetails) {
    mMessage->setMargin(Wt::WLength(kMargin));
    auto* page = new Wt::WContainerWidget;
    auto* layout = new Wt::WVBoxLayout;
    layout->setSpacing(kSpacing);
    layout->addWidget(mMessage, 0, Wt::AlignTop | Wt::AlignLeft);
    layout->addStretch(1);
    page->setLayout(layout);
    auto* tabs = new Wt::WTabWidget;
    tabs->setStyleClass("mirl-details-tab");
    tabs->contentsStack()->setTabIndex(0); // scrolls by keyboard too
    tabs->addTab(page, tr("[RSnnn]Details"));
    setContent(tabs, 1, Wt::AlignJustify);
}
