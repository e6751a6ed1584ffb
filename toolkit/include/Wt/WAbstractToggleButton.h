#pragma once

#include <Wt/WFormWidget.h>

namespace Wt {

/// Base of the buttons that are on, off or, if they can be, in between.
/// With a text the element is a label around it.
class WAbstractToggleButton : public WFormWidget {
public:
    ~WAbstractToggleButton() override;

    void setText(const WString& text);
    bool setTextFormat(TextFormat format);
    void setWordWrap(bool wordWrap);
    void setChecked(bool checked);
    virtual void setChecked() { setChecked(true); }
    virtual void setUnChecked() { setChecked(false); }

    const WString& text() const { return mText; }
    bool isChecked() const { return mState == Checked; }

    WString valueText() const override;
    void setValueText(const WString& value) override;

    EventSignal<>& checked() { return plainSignal("checked"); }
    EventSignal<>& unChecked() { return plainSignal("unchecked"); }

    void childNodes(std::vector<Impl::RenderNode*>& children) override;
    bool hasFocus() const override;
    void setFocus(bool focus) override;
    using WFormWidget::setFocus;
    void setDisabled(bool disabled) override;
    void refresh() override;
    void browserEvent(std::string_view kind, const boost::json::object& event) override;

protected:
    explicit WAbstractToggleButton(WContainerWidget* parent = nullptr);
    explicit WAbstractToggleButton(const WString& text, WContainerWidget* parent = nullptr);

    const char* tag() const override;
    void describe(Impl::ElementSpec& spec) override;
    /// type="…" of the input element.
    virtual const char* inputType() const = 0;
    virtual bool supportsIndeterminate() const { return false; }
    std::string inputId() const override;
    void eventSignalChanged() override;
    void propagateSetEnabled(bool enabled) override;
    void setState(CheckState state);
    CheckState state() const { return mState; }

private:
    class Input;
    class Caption;
    void captionChanged();

    WString mText;
    std::unique_ptr<Input> mInput;     // the input element
    std::unique_ptr<Caption> mCaption; // null without a text
    TextFormat mFormat = PlainText;
    CheckState mState = Unchecked;
    bool mWordWrap = true;
};

} // namespace Wt
