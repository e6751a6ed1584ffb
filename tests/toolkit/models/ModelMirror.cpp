#include "ModelMirror.h"

#include <algorithm>

ModelMirror::ModelMirror(Wt::WAbstractItemModel& model) : mModel(model) {
    model.rowsAboutToBeInserted().connect(this, &ModelMirror::aboutToInsert);
    model.rowsInserted().connect(this, &ModelMirror::inserted);
    model.rowsAboutToBeRemoved().connect(this, &ModelMirror::aboutToRemove);
    model.rowsRemoved().connect(this, &ModelMirror::removed);
    model.dataChanged().connect(this, &ModelMirror::changed);
    model.layoutAboutToBeChanged().connect(this, &ModelMirror::aboutToLayout);
    model.layoutChanged().connect(this, &ModelMirror::laidOut);
    model.modelReset().connect(this, &ModelMirror::reset);
    mRows = modelRows();
}

std::string ModelMirror::rowText(int row) const {
    std::string text;
    for (int column = 0; column < mModel.columnCount(); ++column)
        text += Wt::asString(mModel.data(row, column)).toUTF8() + "|";
    return text;
}

std::vector<std::string> ModelMirror::modelRows() const {
    std::vector<std::string> rows;
    for (int row = 0; row < mModel.rowCount(); ++row) rows.push_back(rowText(row));
    return rows;
}

void ModelMirror::expect(const char* what, bool good) {
    if (!good && complaint.empty()) complaint = what;
}

void ModelMirror::aboutToInsert(const Wt::WModelIndex&, int first, int last) {
    expect("nested change", mOpen.empty());
    expect("row count before an insertion", mModel.rowCount() == static_cast<int>(mRows.size()));
    expect("range of an insertion", first >= 0 && last >= first && first <= static_cast<int>(mRows.size()));
    mOpen = "insert";
    mFirst = first;
    mLast = last;
}

void ModelMirror::inserted(const Wt::WModelIndex&, int first, int last) {
    expect("insertion without announcement", mOpen == "insert" && first == mFirst && last == mLast);
    mOpen.clear();
    ++insertions;
    std::vector<std::string> fresh;
    for (int row = first; row <= last; ++row) fresh.push_back(rowText(row));
    mRows.insert(mRows.begin() + first, fresh.begin(), fresh.end());
    expect("row count after an insertion", mModel.rowCount() == static_cast<int>(mRows.size()));
}

void ModelMirror::aboutToRemove(const Wt::WModelIndex&, int first, int last) {
    expect("nested change", mOpen.empty());
    expect("range of a removal", first >= 0 && last >= first && last < static_cast<int>(mRows.size()));
    expect("row count before a removal", mModel.rowCount() == static_cast<int>(mRows.size()));
    mOpen = "remove";
    mFirst = first;
    mLast = last;
}

void ModelMirror::removed(const Wt::WModelIndex&, int first, int last) {
    expect("removal without announcement", mOpen == "remove" && first == mFirst && last == mLast);
    mOpen.clear();
    ++removals;
    mRows.erase(mRows.begin() + first, mRows.begin() + last + 1);
    expect("row count after a removal", mModel.rowCount() == static_cast<int>(mRows.size()));
}

void ModelMirror::changed(const Wt::WModelIndex& topLeft, const Wt::WModelIndex& bottomRight) {
    expect("change within another", mOpen.empty());
    ++changes;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) mRows.at(row) = rowText(row);
}

void ModelMirror::aboutToLayout() {
    expect("nested change", mOpen.empty());
    mOpen = "layout";
}

void ModelMirror::laidOut() {
    expect("layout without announcement", mOpen == "layout");
    mOpen.clear();
    ++layoutChanges;
    std::vector<std::string> now = modelRows();
    std::vector<std::string> before = mRows;
    mRows = now;
    expect("a layout change keeps the number of rows", before.size() == now.size());
}

void ModelMirror::reset() {
    mRows = modelRows();
}
