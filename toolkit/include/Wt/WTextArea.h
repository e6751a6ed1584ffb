#pragma once

#include <Wt/WFormWidget.h>

namespace Wt {

/// Several lines of text; see WLineEdit for texts set while the user types. What comes from the browser has
/// "\n" as line ends.
class WTextArea : public WFormWidget {
public:
    explicit WTextArea(WContainerWidget* parent = nullptr);
    explicit WTextArea(const WString& text, WContainerWidget* parent = nullptr);

    virtual void setText(const WString& text);
    void setColumns(int columns);
    void setRows(int rows);

    int columns() const { return mColumns; }
    int rows() const { return mRows; }
    const WString& text() const { return mContent; }
    // As the browser told with the event that is being handled; see WLineEdit.
    int selectionStart() const;
    WString selectedText() const;
    bool hasSelectedText() const { return selectionStart() >= 0; }
    int cursorPosition() const;

    WString valueText() const override { return text(); }
    void setValueText(const WString& value) override { setText(value); }

    EventSignal<>& textInput() { return plainSignal("input"); }

    void browserValue(const boost::json::value& value) override;
    WValidator::State validate() override;

protected:
    const char* tag() const override { return "textarea"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    WString mContent;
    int mColumns = 20;
    int mRows = 5;
};

} // namespace Wt
