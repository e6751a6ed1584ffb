#include "frame/WProgressDialog.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WProgressBar>
#include <Wt/WPushButton>
#include <Wt/WText>

WProgressDialog::WProgressDialog(const char* imagePath, const Wt::WString& title, const Wt::WString& text,
                                 const Wt::WString& buttonText) {
    contents()->setPadding(kMsgBoxPaddingPx);
    mHeading = new WDialogHeading(*this, imagePath, title);
    contents()->addWidget(mHeading);
    mText = newMsgBoxText(text);
    contents()->addWidget(mText);
    mBar = new Wt::WProgressBar(contents());
    mBar->setInline(false);
    mButton = newMsgBoxButton(buttonText, newMsgBoxButtonRow(contents()));
    mButton->clicked().connect(this, &WProgressDialog::buttonClickedHandler);
}

void WProgressDialog::titleSet(const Wt::WString& title) {
    mHeading->setTitle(title);
}

void WProgressDialog::buttonTextSet(const Wt::WString& text) {
    mButton->setText(text);
}

void WProgressDialog::msgSet(const Wt::WString& text) {
    mText->setText(text);
}

void WProgressDialog::progressUpdate(double percent) {
    mBar->setValue(percent);
}

void WProgressDialog::buttonClickedHandler() {
    accept();
}
