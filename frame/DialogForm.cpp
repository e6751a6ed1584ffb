#include "frame/DialogForm.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WLabel>
#include <Wt/WLineEdit>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

#include <boost/bind/bind.hpp>

DialogForm::DialogForm(const char* image, const Wt::WString& title, const Wt::WString& text) {
    contents()->setPadding(kMsgBoxPaddingPx);
    mHeading = new WDialogHeading(*this, image, title);
    contents()->addWidget(mHeading);
    if (text.empty()) return;
    mText = newMsgBoxText(text);
    contents()->addWidget(mText);
}

DialogForm::DialogForm(const DialogFormHead& head)
    : DialogForm(head.image, tr(head.title), head.text ? tr(head.text) : Wt::WString()) {
    if (head.escapeRejects) rejectWhenEscapePressed();
}

void DialogForm::titleSet(const Wt::WString& title) {
    mHeading->setTitle(title);
}

void DialogForm::imageSet(const char* image) {
    mHeading->setImage(image);
}

void DialogForm::textSet(const Wt::WString& text) {
    mText->setText(text);
}

void DialogForm::nameByText(Wt::WWidget& widget) const {
    widget.setAttributeValue("aria-labelledby", mText->id());
}

Wt::WTable* DialogForm::fields() {
    if (!mFields) mFields = new Wt::WTable(contents());
    return mFields;
}

Wt::WLabel* DialogForm::newLabel(const char* labelKey, Wt::WFormWidget& field, Wt::WContainerWidget* parent) {
    auto* label = new Wt::WLabel(tr(labelKey), parent);
    label->setStyleClass("mirl-label");
    label->setBuddy(&field);
    field.setAttributeValue("aria-labelledby", label->id());
    return label;
}

Wt::WLabel* DialogForm::addField(const char* labelKey, Wt::WFormWidget* field) {
    const int row = fields()->rowCount();
    Wt::WLabel* label = newLabel(labelKey, *field, mFields->elementAt(row, 0));
    mFields->elementAt(row, 1)->addWidget(field);
    return label;
}

Wt::WPushButton* DialogForm::newButton(const Wt::WString& text) {
    if (!mButtons) mButtons = newMsgBoxButtonRow(contents());
    return newMsgBoxButton(text, mButtons);
}

void DialogForm::markMain(Wt::WPushButton* button) {
    button->addStyleClass("mirl-main-answer");
}

Wt::WPushButton* DialogForm::addButton(const char* textKey, int number, DialogCode result) {
    Wt::WPushButton* button = newButton(tr(textKey));
    button->clicked().connect(boost::bind(&DialogForm::finish, this, number, result));
    return button;
}

void DialogForm::enterPresses(Wt::WLineEdit* field, Wt::WPushButton* button) {
    field->enterPressed().connect(boost::bind(&DialogForm::press, this, button));
}

void DialogForm::press(Wt::WPushButton* button) {
    judgeFields();
    if (button->isEnabled()) button->clicked().emit(Wt::WMouseEvent());
}

void DialogForm::finish(int button, DialogCode result) {
    mButtonClicked = button;
    done(result);
}
