#include "frame/DialogForm.h"
#include "tests/frame/PlainApp.h"
#include "tests/frame/WidgetSearch.h"

#include <Wt/WComboBox>
#include <Wt/WLabel>
#include <Wt/WLineEdit>

#include <gtest/gtest.h>

#if __has_include("test/TestSession.h")
#include "test/TestSession.h"
#endif

namespace {

constexpr DialogFormHead kHead = {"upload.png", "title", "text"};

struct Form : DialogForm {
    enum Button { None, Connect, Cancel, Apply };

    explicit Form(const DialogFormHead& head = kHead) : DialogForm(head) {
        name = addLineEdit("name");
        kind = new Wt::WComboBox;
        addField("kind", kind);
        password = addPassword("password");
        connect = addButton("connect", Connect);
        addButton("cancel", Cancel, Rejected);
        addButton("apply", this, &Form::apply);
        enterPresses(name, connect);
        show();
    }
    void apply() { noteButton(Apply); }
    void judgeFields() override { connect->setEnabled(!name->text().empty()); }

    Wt::WLineEdit* name;
    Wt::WComboBox* kind;
    Wt::WLineEdit* password;
    Wt::WPushButton* connect;
};

TEST(DialogForm, EveryFieldIsNamedByTheLabelBesideIt) {
    PlainApp app;
    Form form;
    const auto labels = widgetsIn<Wt::WLabel>(&form);
    Wt::WFormWidget* const fields[] = {form.name, form.kind, form.password};
    ASSERT_EQ(labels.size(), std::size(fields));
    const char* words[] = {"name", "kind", "password"};
    for (std::size_t i = 0; i < labels.size(); ++i) {
        EXPECT_NE(labels[i]->text().toUTF8().find(words[i]), std::string::npos);
        EXPECT_EQ(labels[i]->buddy(), fields[i]) << i;
        EXPECT_EQ(fields[i]->attributeValue("aria-labelledby").toUTF8(), labels[i]->id()) << i;
    }
    EXPECT_EQ(form.password->echoMode(), Wt::WLineEdit::Password);
    EXPECT_EQ(form.name->echoMode(), Wt::WLineEdit::Normal);
    EXPECT_FALSE(form.password->autoComplete());
}

TEST(DialogForm, AButtonLeavesItsNumberAndEndsTheDialogAsItSays) {
    PlainApp app;
    const struct {
        int button; // place in the row
        int number;
        Wt::WDialog::DialogCode result;
        bool open;
    } rows[] = {{0, Form::Connect, Wt::WDialog::Accepted, false},
                {1, Form::Cancel, Wt::WDialog::Rejected, false},
                {2, Form::Apply, Wt::WDialog::Rejected, true}};
    for (const auto& row : rows) {
        Form form;
        EXPECT_EQ(form.buttonClicked(), Form::None);
        click(widgetsIn<Wt::WPushButton>(&form).at(static_cast<std::size_t>(row.button)));
        EXPECT_EQ(form.buttonClicked(), row.number);
        EXPECT_EQ(form.result(), row.result) << row.number;
        EXPECT_EQ(form.isVisible(), row.open) << row.number;
    }
}

TEST(DialogForm, EnterPressesItsButtonOnlyIfTheFieldsAllowIt) {
    PlainApp app;
    Form form;
    form.name->enterPressed().emit(); // still empty; the button was on
    EXPECT_EQ(form.buttonClicked(), Form::None);
    EXPECT_TRUE(form.isVisible());
    form.name->setText("x"); // and the button is off
    form.name->enterPressed().emit();
    EXPECT_EQ(form.buttonClicked(), Form::Connect);
    EXPECT_EQ(form.result(), Wt::WDialog::Accepted);
}

#if __has_include("test/TestSession.h") // only our own toolkit shows what it asks the browser to listen to
TEST(DialogForm, EscapeRejectsUnlessTheHeadSaysNo) {
    PlainApp app;
    for (const bool rejects : {true, false}) {
        DialogFormHead head = kHead;
        head.escapeRejects = rejects;
        Wt::Impl::TestSession::current().takeOperations();
        const Form form(head);
        const std::string sent = Wt::Impl::TestSession::current().takeOperations();
        EXPECT_EQ(sent.find("escape") != std::string::npos, rejects) << sent;
    }
}
#endif

TEST(DialogForm, TheExplanationMayBeLeftOut) {
    PlainApp app;
    DialogFormHead head = kHead;
    head.text = nullptr;
    Form with, without(head);
    EXPECT_EQ(widgetsIn<Wt::WText>(&with).size(), widgetsIn<Wt::WText>(&without).size() + 1);
    with.titleSet("another");
    EXPECT_EQ(textIn(&with).substr(0, 8), "another\n");
}

} // namespace
