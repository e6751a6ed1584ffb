// How an item view follows its model.
#include "views/ViewColumns.h"
#include "views/ViewSelection.h"

#include <Wt/WAbstractItemView.h>

namespace Wt {

void WAbstractItemView::setModel(WAbstractItemModel* model) {
    for (const auto& old : mConnections) old.disconnect();
    mConnections.clear();
    const bool lost = mSelection->clear();
    mModel = model;
    mSortColumn = -1;
    if (model) {
        using Self = WAbstractItemView;
        mConnections = {
            model->rowsAboutToBeInserted().connect(this, &Self::modelRowsAboutToBeChanged),
            model->rowsInserted().connect(this, &Self::modelRowsInserted),
            model->rowsAboutToBeRemoved().connect(this, &Self::modelRowsAboutToBeChanged),
            model->rowsRemoved().connect(this, &Self::modelRowsRemoved),
            model->columnsInserted().connect(this, &Self::modelColumnsInserted),
            model->columnsRemoved().connect(this, &Self::modelColumnsRemoved),
            model->dataChanged().connect(this, &Self::viewChanged),
            model->headerDataChanged().connect(this, &Self::viewChanged),
            model->layoutAboutToBeChanged().connect(this, &Self::modelLayoutAboutToBeChanged),
            model->layoutChanged().connect(this, &Self::modelLayoutChanged),
            model->modelReset().connect(this, &Self::modelReset),
        };
    }
    selectionTouched(lost);
}

void WAbstractItemView::modelRowsAboutToBeChanged(const WModelIndex& parent) {
    if (!parent.isValid()) mRowsBefore = mModel->rowCount();
}

void WAbstractItemView::modelRowsInserted(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    mSelection->rowsInserted(first, last - first + 1, mRowsBefore);
    viewChanged();
}

void WAbstractItemView::modelRowsRemoved(const WModelIndex& parent, int first, int last) {
    if (!parent.isValid()) selectionTouched(mSelection->rowsRemoved(first, last - first + 1, mRowsBefore));
}

void WAbstractItemView::modelColumnsInserted(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    mColumns->inserted(first, last - first + 1);
    mSelection->columnsInserted(first, last - first + 1);
    viewChanged();
}

void WAbstractItemView::modelColumnsRemoved(const WModelIndex& parent, int first, int last) {
    if (parent.isValid()) return;
    mColumns->removed(first, last - first + 1);
    selectionTouched(mSelection->columnsRemoved(first, last - first + 1));
}

void WAbstractItemView::modelLayoutAboutToBeChanged() {
    mSelection->beforeLayout(*mModel);
}
void WAbstractItemView::modelLayoutChanged() {
    selectionTouched(mSelection->afterLayout());
}
void WAbstractItemView::modelReset() {
    selectionTouched(mSelection->clear());
}

} // namespace Wt
