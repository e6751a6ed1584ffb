#pragma once

#include <Wt/WInteractWidget.h>
#include <Wt/WString.h>

namespace Wt {

class WFormWidget;
class WImage;

/// The name of a form widget; a click on it gives the widget the focus.
class WLabel : public WInteractWidget {
public:
    explicit WLabel(WContainerWidget* parent = nullptr);
    explicit WLabel(const WString& text, WContainerWidget* parent = nullptr);
    explicit WLabel(WImage* image, WContainerWidget* parent = nullptr);
    ~WLabel() override;

    void setBuddy(WFormWidget* buddy); ///< not owned
    void setText(const WString& text);
    bool setTextFormat(TextFormat format);
    void setImage(WImage* image, Side side = Left); ///< takes ownership
    void setWordWrap(bool wordWrap);

    WFormWidget* buddy() const { return mBuddy; }
    const WString& text() const { return mText; }
    TextFormat textFormat() const { return mFormat; }
    WImage* image() const { return mImage; }
    bool wordWrap() const { return mWordWrap; }

    void childNodes(std::vector<Impl::RenderNode*>& children) override;

protected:
    const char* tag() const override { return "label"; }
    void describe(Impl::ElementSpec& spec) override;

private:
    friend class WFormWidget;

    WFormWidget* mBuddy = nullptr;
    WString mText;
    WImage* mImage = nullptr;
    TextFormat mFormat = PlainText;
    bool mWordWrap = false;
};

} // namespace Wt
