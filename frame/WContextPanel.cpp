#include "frame/WContextPanel.h"

#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WVBoxLayout>

WContextPanelTitleBar::WContextPanelTitleBar(const Wt::WString& title, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent) {
    setStyleClass("mirl-context-panel-title");
    setHeight(Wt::WLength(kTitleBarHeight));
    mTable = new Wt::WTable(this);
    mTable->setHeight(Wt::WLength(kTitleBarHeight));
    Wt::WTableCell* cell = mTable->elementAt(0, 0);
    cell->setPadding(Wt::WLength(4), Wt::Left);
    cell->setContentAlignment(Wt::AlignMiddle);
    auto* text = new Wt::WText(title, Wt::PlainText, cell);
    text->setAttributeValue("role", "heading");
    text->setAttributeValue("aria-level", "2");
}

void WContextPanelTitleBar::addNote(Wt::WWidget* note) {
    Wt::WTableCell* cell = mTable->elementAt(0, 1);
    cell->setContentAlignment(Wt::AlignMiddle);
    cell->addWidget(note);
}

WContextPanel::WContextPanel(const Wt::WString& title, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mTitleBar(new WContextPanelTitleBar(title)) {
    auto* layout = new Wt::WVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    setLayoutSizeAware(true);
    setLayout(layout);
    layout->addWidget(mTitleBar);
    setStyleClass("mirl-context-panel");
}

void WContextPanel::setContent(Wt::WWidget* content, int stretch, Wt::WFlags<Wt::AlignmentFlag> alignment) {
    mContent = content;
    content->setInline(false);
    static_cast<Wt::WBoxLayout*>(layout())->addWidget(content, stretch, alignment);
}

// The panel takes the layout's height without answering its own change by another size event.
void WContextPanel::layoutSizeChanged(int /*width*/, int height) {
    setLayoutSizeAware(false);
    setHeight(Wt::WLength(height));
    setLayoutSizeAware(true);
}
