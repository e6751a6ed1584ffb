#pragma once

#include <Wt/WFormWidget.h>

namespace Wt {

/// One line of text. A text set while the user types replaces it in the page, except what was typed after the
/// event that caused the setting: that wins, and arrives with the next event.
class WLineEdit : public WFormWidget {
public:
    enum EchoMode { Normal, Password };

    explicit WLineEdit(WContainerWidget* parent = nullptr);
    explicit WLineEdit(const WString& text, WContainerWidget* parent = nullptr);

    virtual void setText(const WString& text);
    /// Width in characters.
    void setTextSize(int chars);
    void setMaxLength(int length);
    void setEchoMode(EchoMode echoMode);
    void setAutoComplete(bool enabled);

    int textSize() const { return mTextSize; }
    const WString& text() const { return mContent; }
    WString displayText() const;
    int maxLength() const { return mMaxLength; }
    EchoMode echoMode() const { return mEchoMode; }
    bool autoComplete() const { return mAutoComplete; }
    /// Character at which the selected text begins; -1 if none is selected or the field has not the focus.
    int selectionStart() const;
    WString selectedText() const;
    bool hasSelectedText() const { return selectionStart() >= 0; }
    /// Characters in front of the caret; -1 without the focus, and for a password.
    int cursorPosition() const;

    WString valueText() const override { return text(); }
    void setValueText(const WString& value) override { setText(value); }

    /// Any input, before the field loses the focus.
    EventSignal<>& textInput() { return plainSignal("input"); }

    void browserValue(const boost::json::value& value) override;
    WValidator::State validate() override;

protected:
    const char* tag() const override { return "input"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    WString mContent;
    int mTextSize = 10;
    int mMaxLength = -1;
    EchoMode mEchoMode = Normal;
    bool mAutoComplete = true;
};

} // namespace Wt
