#include "frame/WMsgBox.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WAnchor>
#include <Wt/WCheckBox>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WTimer>

namespace {

enum FrameRow { kTitleRow, kMessageRow, kCheckBoxRow, kButtonRow };

} // namespace

WMsgBox::WMsgBox(MsgType type) : mType(type) {
    setTitleBarEnabled(false);
    rejectWhenEscapePressed();
    mFrameTable = new Wt::WTable(contents());
    contents()->setPadding(kMsgBoxPaddingPx);
    Wt::WTableCell* buttonCell = mFrameTable->elementAt(kButtonRow, 0);
    buttonCell->setContentAlignment(Wt::AlignRight | Wt::AlignMiddle);
    mButtonTable = new Wt::WTable(buttonCell);
    mButtonTable->addStyleClass("mirl-dialog-buttons");
}

WMsgBox::~WMsgBox() = default;

void WMsgBox::titleSet(const Wt::WString& title) {
    Wt::WTableCell* cell = mFrameTable->elementAt(kTitleRow, 0);
    cell->clear();
    cell->addWidget(new WDialogHeading(*this, msgBoxImage(mType), title));
}

void WMsgBox::msgSet(const Wt::WString& message) {
    Wt::WTableCell* cell = mFrameTable->elementAt(kMessageRow, 0);
    cell->clear();
    cell->addWidget(newMsgBoxText(message));
}

void WMsgBox::msgSet(const char* message) {
    msgSet(Wt::WString::fromUTF8(message));
}

void WMsgBox::linkAdd(const std::string& address) {
    auto* link = new Wt::WAnchor(Wt::WLink(address), Wt::WString::fromUTF8(address),
                                 mFrameTable->elementAt(kMessageRow, 0));
    link->setTextFormat(Wt::PlainText);
    link->setInline(false);
    link->setStyleClass("mirl-link");
    link->setTarget(Wt::TargetNewWindow);
}

void WMsgBox::checkBoxSet(const Wt::WString& text) {
    Wt::WTableCell* cell = mFrameTable->elementAt(kCheckBoxRow, 0);
    cell->clear();
    mCheckBox = new Wt::WCheckBox(text, cell);
}

void WMsgBox::buttonAdd(const Wt::WString& text) {
    using Handler = void (WMsgBox::*)();
    static constexpr Handler kHandlers[kMaxButtons] = {
        &WMsgBox::button1ClickedHandler, &WMsgBox::button2ClickedHandler, &WMsgBox::button3ClickedHandler};
    if (mButtonCount == kMaxButtons) return;
    auto* button = newMsgBoxButton(text, mButtonTable->elementAt(0, kMaxButtons - 1 - mButtonCount));
    button->clicked().connect(this, kHandlers[mButtonCount]);
    mButtons[mButtonCount++] = button;
    if (mButtonCount == 1) focusSet(1);
}

void WMsgBox::focusSet(int number) {
    if (number >= 1 && number <= mButtonCount) mButtons[number - 1]->setFocus();
}

void WMsgBox::execWithTimeout(unsigned int ms) {
    Wt::WTimer timer;
    timer.setSingleShot(true);
    timer.setInterval(static_cast<int>(ms));
    timer.timeout().connect(this, &WMsgBox::timeoutHandler);
    timer.start();
    exec();
}

bool WMsgBox::isCheckBoxChecked() const {
    return mCheckBox && mCheckBox->isChecked();
}

void WMsgBox::button1ClickedHandler() {
    buttonClickedHandler(1);
}
void WMsgBox::button2ClickedHandler() {
    buttonClickedHandler(2);
}
void WMsgBox::button3ClickedHandler() {
    buttonClickedHandler(3);
}
void WMsgBox::timeoutHandler() {
    accept();
}

void WMsgBox::buttonClickedHandler(int number) {
    mButtonClicked = number;
    accept();
}
