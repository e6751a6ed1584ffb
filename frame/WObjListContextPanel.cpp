#include "frame/WObjListContextPanel.h"

#include "frame/WAutoSizeTableView.h"
#include "widgets/WLineEditPlus.h"

#include <Wt/WStandardItemModel>
#include <Wt/WText>

WObjListContextPanel::WObjListContextPanel(const Wt::WString& title, int columns,
                                           Wt::WContainerWidget* parent)
    : WObjListContextPanel(title, columns, false, parent) {}

WObjListContextPanel::WObjListContextPanel(const Wt::WString& title, int columns, bool withFilter,
                                           Wt::WContainerWidget* parent)
    : WContextPanel(title, parent), ObjListParts(columns, withFilter) {
    mLockNote = new Wt::WText;
    mLockNote->setTextFormat(Wt::PlainText);
    mLockNote->setStyleClass("mirl-lock-note");
    mLockNote->setAttributeValue("role", "status");
    titleBar()->addNote(mLockNote);
    if (withFilter) {
        // The same words in every list, whatever its records are.
        setContent(makeFilterRow(tr("mirl.devices.filter.label"), tr("tt.dev.list.filter")), 0,
                   Wt::AlignJustify);
        mFilterField->valueChanged().connect(this, &WObjListContextPanel::filterRegExTextChangedHandler);
    }
    setContent(mTable, 1, Wt::AlignJustify);
}

int WObjListContextPanel::rowCount() const {
    return mModel->rowCount();
}

int WObjListContextPanel::numSelected() const {
    return static_cast<int>(mTable->selectedIndexes().size());
}

void WObjListContextPanel::removeAllRows() {
    mModel->removeRows(0, mModel->rowCount());
}

void WObjListContextPanel::filterRegExTextChangedHandler(std::string text) {
    setFilterText(text);
}
