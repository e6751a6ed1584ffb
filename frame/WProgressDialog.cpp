#include "frame/WProgressDialog.h"

#include <Wt/WProgressBar>

WProgressDialog::WProgressDialog(const char* imagePath, const Wt::WString& title, const Wt::WString& text,
                                 const Wt::WString& buttonText)
    : DialogForm(imagePath, title, text), mBar(new Wt::WProgressBar(contents())),
      mButton(newButton(buttonText)) {
    mBar->setInline(false);
    mButton->clicked().connect(this, &WProgressDialog::buttonClickedHandler);
}

void WProgressDialog::buttonTextSet(const Wt::WString& text) {
    mButton->setText(text);
}

void WProgressDialog::msgSet(const Wt::WString& text) {
    textSet(text);
}

void WProgressDialog::progressUpdate(double percent) {
    mBar->setValue(percent);
}

void WProgressDialog::buttonClickedHandler() {
    accept();
}
