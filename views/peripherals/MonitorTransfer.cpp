#include "views/peripherals/MonitorTransfer.h"

#include "frame/MsgBoxParts.h"
#include "frame/RecordTable.h"

#include <Wt/WApplication>
#include <Wt/WCheckBox>
#include <Wt/WStackedWidget>

#include <utility>

namespace {

constexpr int kResultWidth = 500; // pixels at most, once the list has gone

} // namespace

MonitorTransfer::MonitorTransfer(const DialogFormHead& head, RecordTable* list, int width, int height,
                                 const char* goKey)
    : DialogForm(head), mList(list), mStack(new Wt::WStackedWidget(contents())),
      mCloseWhenDone(
          new Wt::WCheckBox(tr("[RSnnn]Close when operation successfully completes."), contents())),
      mCancel(addButton("[RSnnn]Cancel", this, &MonitorTransfer::cancelButtonClickedHandler)),
      mGo(addButton(goKey, this, &MonitorTransfer::goButtonClickedHandler)) {
    mStack->addWidget(mList);
    mList->resize(width, height);
    nameByText(*mList);
    mList->selectionChanged().connect(this, &MonitorTransfer::selectionChangedHandler);
    markMain(mGo);
    mGo->disable();
    finished().connect([this] { mLeft = true; });
}

void MonitorTransfer::addToStack(Wt::WWidget* widget) {
    mStack->addWidget(widget);
}

void MonitorTransfer::showInstead(Wt::WWidget* page) {
    mStack->setCurrentWidget(page);
}

void MonitorTransfer::selectionChangedHandler() {
    mGo->setEnabled(mList->numSelected() > 0);
}

void MonitorTransfer::cancelButtonClickedHandler() {
    finish(Cancel, Rejected);
}

void MonitorTransfer::goButtonClickedHandler() {
    // A second click comes while the first one works, or behind it.
    if (mBusy || mBegun || mLeft || mList->numSelected() == 0) return;
    mBusy = true;
    transfer();
    mBusy = false;
}

void MonitorTransfer::begin() {
    mBegun = true;
    textSet(Wt::WString()); // nothing is to be chosen any more
    mCloseWhenDone->hide();
    mGo->hide();
}

bool MonitorTransfer::isLeft() const {
    return mLeft || Wt::WApplication::instance()->isQuited();
}

bool MonitorTransfer::end(const Wt::WString& title) {
    titleSet(title);
    mCancel->setText(tr("[RSnnn]Close"));
    setMaximumSize(kResultWidth, Wt::WLength::Auto);
    if (!mCloseWhenDone->isChecked() || isLeft()) return false;
    finish(Go);
    return true;
}

void MonitorTransfer::endWithFailure(const Wt::WString& title, Wt::WWidget* page) {
    mCloseWhenDone->setUnChecked();
    end(title);
    imageSet(msgBoxImage(2));
    showInstead(page);
}
