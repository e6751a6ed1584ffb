#pragma once

#include <Wt/WInteractWidget.h>
#include <Wt/WString.h>

namespace Wt {

/// Text. XHTMLText is filtered by an allow-list; text that is no well-formed XHTML turns
/// the widget to PlainText.
class WText : public WInteractWidget {
public:
    explicit WText(WContainerWidget* parent = nullptr);
    explicit WText(const WString& text, WContainerWidget* parent = nullptr);
    WText(const WString& text, TextFormat format, WContainerWidget* parent = nullptr);
    ~WText() override;

    /// False if XHTML was wanted and `text` isn't: it is shown as plain text then.
    bool setText(const WString& text);
    bool setTextFormat(TextFormat format);
    /// Off: the text stays on one line.
    void setWordWrap(bool on);
    void setTextAlignment(AlignmentFlag alignment);
    void setPadding(const WLength& padding, WFlags<Side> sides = All);
    void setInternalPathEncoding(bool enabled) { static_cast<void>(enabled); }
    void refresh() override;

    const WString& text() const { return mText; }
    TextFormat textFormat() const { return mFormat; }
    bool wordWrap() const { return mWordWrap; }
    AlignmentFlag textAlignment() const;
    WLength padding(Side side) const;

protected:
    void describe(Impl::ElementSpec& spec) override;

private:
    bool checkFormat();

    struct Padding;
    WString mText;
    std::unique_ptr<Padding> mPadding;
    TextFormat mFormat = XHTMLText;
    unsigned short mAlignment = 0;
    bool mWordWrap = true;
};

} // namespace Wt
