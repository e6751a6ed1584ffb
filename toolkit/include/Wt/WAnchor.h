#pragma once

#include <Wt/WContainerWidget.h>
#include <Wt/WLink.h>
#include <Wt/WString.h>

namespace Wt {

class WImage;

/// A link. Without a target it is a button that looks like a link, reachable by keyboard.
class WAnchor : public WContainerWidget {
public:
    explicit WAnchor(WContainerWidget* parent = nullptr);
    explicit WAnchor(const WLink& link, WContainerWidget* parent = nullptr);
    WAnchor(const WLink& link, const WString& text, WContainerWidget* parent = nullptr);
    WAnchor(const WLink& link, WImage* image, WContainerWidget* parent = nullptr);

    void setLink(const WLink& link);
    void setRef(const std::string& url) { setLink(WLink(url)); }
    void setResource(WResource* resource) { setLink(WLink(resource)); }
    bool setText(const WString& text);
    bool setTextFormat(TextFormat format);
    void setWordWrap(bool wordWrap);
    void setImage(WImage* image); ///< takes ownership
    void setTarget(AnchorTarget target);
    void refresh() override;

    const WLink& link() const { return mLink; }
    std::string ref() const { return mLink.url(); }
    WResource* resource() const { return mLink.resource(); }
    const WString& text() const { return mText; }
    TextFormat textFormat() const { return mFormat; }
    WImage* image() const { return mImage; }
    AnchorTarget target() const { return mTarget; }
    bool canReceiveFocus() const override { return true; }

    void removeWidget(WWidget* widget) override;

protected:
    const char* tag() const override { return "a"; }
    bool needsKeyboardStop() const override { return mLink.isNull(); }
    void describe(Impl::ElementSpec& spec) override;

private:
    WLink mLink;
    WString mText;
    WImage* mImage = nullptr;
    Signals::connection mResourceChanged;
    TextFormat mFormat = XHTMLText;
    AnchorTarget mTarget = TargetSelf;
    bool mWordWrap = true;
};

} // namespace Wt
