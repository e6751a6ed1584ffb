#pragma once

#include <Wt/WDialog>
#include <Wt/WPushButton>

namespace Wt {
class WFormWidget;
class WLabel;
class WLineEdit;
class WTable;
class WText;
} // namespace Wt

class WDialogHeading;

/// What a dialog begins with. Texts are message keys.
struct DialogFormHead {
    const char* image; // file in the brand's theme folder
    const char* title;
    const char* text = nullptr; // explanation below the title; null = none
    bool escapeRejects = true;
};

/// A dialog: heading, explanation, then what the derived class adds in its constructor, from top to bottom:
/// fields with their labels, other widgets (into contents()), and a row of buttons.
///
///     enum Button { None, Cancel, Connect };          // values of buttonClicked()
///     ConnectDialog() : DialogForm(kHead) {
///         mName = addLineEdit("...");
///         enterPresses(mName, addButton("...", Connect));
///         addButton("...", Cancel, Rejected);
///     }
class DialogForm : public Wt::WDialog {
public:
    explicit DialogForm(const DialogFormHead& head);
    /// The same with words that are no message keys. Escape does nothing.
    DialogForm(const char* image, const Wt::WString& title, const Wt::WString& text);

    virtual void titleSet(const Wt::WString& title);
    /// Another image before the title: a file in the brand's theme folder.
    void imageSet(const char* image);

    /// Button that was last used: a number of the dialog's own; 0 = none.
    int buttonClicked() const { return mButtonClicked; }

protected:
    /// Only for a dialog that began with an explanation.
    void textSet(const Wt::WString& text);
    /// The explanation becomes the widget's accessible name.
    void nameByText(Wt::WWidget& widget) const;

    /// A row of fields() with a label, which names the field.
    Wt::WLabel* addField(const char* labelKey, Wt::WFormWidget* field);
    /// The same with a new line edit: Wt::WLineEdit or what derives from it.
    template <class Edit = Wt::WLineEdit>
    Edit* addLineEdit(const char* labelKey) {
        auto* edit = new Edit;
        addField(labelKey, edit);
        edit->setStyleClass(kEditStyle);
        return edit;
    }
    /// The same for a password: not legible, and not offered by the browser.
    template <class Edit = Wt::WLineEdit>
    Edit* addPassword(const char* labelKey) {
        auto* edit = addLineEdit<Edit>(labelKey);
        edit->setEchoMode(Edit::Password);
        edit->setAutoComplete(false);
        return edit;
    }
    /// A label for a field that stands elsewhere.
    static Wt::WLabel* newLabel(const char* labelKey, Wt::WFormWidget& field, Wt::WContainerWidget* parent);
    /// Rows of label and field, made with the first one.
    Wt::WTable* fields();

    /// A button that ends the dialog with its number.
    Wt::WPushButton* addButton(const char* textKey, int number, DialogCode result = Accepted);
    /// A button with a handler of its own, which may call finish().
    template <class Dialog>
    Wt::WPushButton* addButton(const char* textKey, Dialog* dialog, void (Dialog::*handler)()) {
        Wt::WPushButton* button = newButton(tr(textKey));
        button->clicked().connect(dialog, handler);
        return button;
    }
    Wt::WPushButton* newButton(const Wt::WString& text);
    /// Shows it as what the dialog is for; without, that is the first button.
    static void markMain(Wt::WPushButton* button);

    /// Enter in the field presses the button if it is enabled.
    void enterPresses(Wt::WLineEdit* field, Wt::WPushButton* button);
    /// What Enter does then.
    void press(Wt::WPushButton* button);
    /// Enables buttons by what the fields hold; called before Enter presses one.
    virtual void judgeFields() {}

    void finish(int button, DialogCode result = Accepted);
    /// For a button that leaves the dialog open.
    void noteButton(int button) { mButtonClicked = button; }

    static constexpr const char* kEditStyle = "mirl-attribute-table-read-write-line-edit";

private:
    WDialogHeading* mHeading;
    Wt::WText* mText = nullptr;               // null without an explanation
    Wt::WTable* mFields = nullptr;            // made with the first field
    Wt::WContainerWidget* mButtons = nullptr; // made with the first button
    int mButtonClicked = 0;
};
