#pragma once

#include <Wt/WFormWidget.h>
#include <Wt/WLink.h>

namespace Wt {

/// A button. With a link it leads there besides emitting clicked().
class WPushButton : public WFormWidget {
public:
    explicit WPushButton(WContainerWidget* parent = nullptr);
    explicit WPushButton(const WString& text, WContainerWidget* parent = nullptr);
    WPushButton(const WString& text, TextFormat format, WContainerWidget* parent = nullptr);
    ~WPushButton() override;

    bool setText(const WString& text);
    bool setTextFormat(TextFormat format);
    void setIcon(const WLink& link);
    void setIcon(const std::string& url) { setIcon(WLink(url)); }
    void setLink(const WLink& link);
    void setLinkTarget(AnchorTarget target);
    void setRef(const std::string& url) { setLink(WLink(url)); }
    void setResource(WResource* resource) { setLink(WLink(resource)); }
    /// In a dialog: Enter presses it, unless the focus is on something that Enter means something to itself
    /// (another button, a link, a text area, a list).
    /// The dialog's first default button that can be pressed counts.
    void setDefault(bool enabled);
    void setCheckable(bool checkable);
    void setChecked(bool checked);

    const WString& text() const { return mText; }
    TextFormat textFormat() const { return mFormat; }
    const WLink& icon() const { return mIcon; }
    const WLink& link() const { return mLink; }
    AnchorTarget linkTarget() const { return mTarget; }
    bool isDefault() const { return mDefault; }
    bool isCheckable() const { return mCheckable; }
    bool isChecked() const { return mChecked; }

    WString valueText() const override { return WString(); }
    void setValueText(const WString& value) override;
    void refresh() override;

protected:
    const char* tag() const override { return mLink.isNull() ? "button" : "a"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    WString mText;
    WLink mIcon, mLink;
    Signals::connection mResourceChanged;
    TextFormat mFormat = PlainText;
    AnchorTarget mTarget = TargetSelf;
    bool mDefault = false, mCheckable = false, mChecked = false;
};

} // namespace Wt
