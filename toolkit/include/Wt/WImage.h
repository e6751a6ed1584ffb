#pragma once

#include <Wt/WInteractWidget.h>
#include <Wt/WLink.h>

namespace Wt {

/// An image. Give it an alternate text, or it is decoration to a screen reader.
class WImage : public WInteractWidget {
public:
    explicit WImage(WContainerWidget* parent = nullptr);
    explicit WImage(const WLink& link, WContainerWidget* parent = nullptr);
    WImage(const WLink& link, const WString& altText, WContainerWidget* parent = nullptr);

    void setAlternateText(const WString& text);
    void setImageLink(const WLink& link);
    void setImageRef(const std::string& ref) { setImageLink(WLink(ref)); }

    const WString& alternateText() const { return mAlt; }
    const WLink& imageLink() const { return mLink; }
    const std::string imageRef() const { return mLink.url(); }

    EventSignal<>& imageLoaded() { return plainSignal("load"); }

protected:
    const char* tag() const override { return "img"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    WLink mLink;
    WString mAlt;
    Signals::connection mResourceChanged;
};

} // namespace Wt
