#include "frame/TwoListMover.h"

#include "frame/WNumericSortFilterProxyModel.h"

#include <Wt/WHBoxLayout>
#include <Wt/WPushButton>
#include <Wt/WVBoxLayout>

#include <functional>

namespace {

constexpr const char* kDisabledListStyle = "mirl-wtableview-disabled";

/// Rows by which an entry changes its place in the right list; 0 for a move to the other list.
constexpr int stepOf(Move move) {
    return move == Move::Up ? -1 : move == Move::Down ? 1 : 0;
}

} // namespace

TwoListMover::TwoListMover(Model& model, MoverList* left, MoverList* right,
                           std::span<const MoverButton> buttons, int rightLimit, Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mModel(model), mLeft(left), mRight(right), mRightLimit(rightLimit) {
    auto* column = new Wt::WVBoxLayout;
    for (const MoverButton& row : buttons) {
        auto* button = new Wt::WPushButton(tr(row.label));
        button->addStyleClass("mirl-mover-button");
        button->clicked().connect(std::bind([this, move = row.move] { apply(move); }));
        mButtons.push_back({row.move, button});
        column->addWidget(button);
    }
    column->addStretch(1);
    auto* layout = new Wt::WHBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(mLeft, 1);
    layout->addLayout(column);
    layout->addWidget(mRight, 1);
    setLayout(layout);
    for (MoverList* list : {mLeft, mRight})
        list->selectionChanged().connect(std::bind([this, list] { selectionChanged(list); }));
    enableButtons();
}

void TwoListMover::refresh() {
    mModel.show(*mLeft, *mRight);
    enableButtons();
}

void TwoListMover::apply(Move move) {
    if (!moveAllowed(move, state())) return;
    const int step = stepOf(move);
    const int row = step == 0 ? 0 : mRight->selectedIndexes().begin()->row() + step;
    if (row < 0 || (step != 0 && row >= mRight->proxy()->rowCount())) return;

    std::vector<unsigned> indexes;
    if (move == Move::Add) indexes = mLeft->selectedZeqIndexes();
    if (move == Move::Remove || step != 0) indexes = mRight->selectedZeqIndexes();
    mModel.move(move, indexes);
    clearSelection();
    refresh();
    if (step != 0) {
        const Wt::WModelIndex index = mRight->proxy()->index(row, 0);
        mRight->scrollTo(index);
        mRight->select(index);
    }
    mMoved.emit();
}

void TwoListMover::setUsable(bool usable) {
    mUsable = usable;
    if (!usable) clearSelection();
    for (MoverList* list : {mLeft, mRight}) {
        list->setDisabled(!usable);
        list->toggleStyleClass(kDisabledListStyle, !usable);
    }
    enableButtons();
}

void TwoListMover::clearSelection() {
    mLeft->clearSelection();
    mRight->clearSelection();
}

bool TwoListMover::hasSelection() const {
    return mLeft->numSelected() + mRight->numSelected() > 0;
}

Wt::WPushButton* TwoListMover::button(Move move) const {
    for (const Button& button : mButtons)
        if (button.move == move) return button.widget;
    return nullptr;
}

void TwoListMover::selectionChanged(MoverList* list) {
    MoverList* other = list == mLeft ? mRight : mLeft;
    if (list->numSelected() > 0 && other->numSelected() > 0) other->clearSelection();
    enableButtons();
}

void TwoListMover::enableButtons() {
    const MoverState now = state();
    for (const Button& button : mButtons) button.widget->setEnabled(moveAllowed(button.move, now));
}

MoverState TwoListMover::state() const {
    return {mUsable,    mLeft->rowCount(), mLeft->numSelected(), mRight->rowCount(), mRight->numSelected(),
            mRightLimit};
}
