#include <Wt/WLineEdit.h>

#include "core/Utf8.h"
#include "forms/FieldText.h"
#include "forms/TextSelection.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"
#include "web/Renderer.h"

#include <boost/json/value.hpp>

namespace Wt {

WLineEdit::WLineEdit(WContainerWidget* parent) : WFormWidget(parent) {}
WLineEdit::WLineEdit(const WString& text, WContainerWidget* parent) : WFormWidget(parent), mContent(text) {}

void WLineEdit::setText(const WString& text) {
    if (text == mContent && text.literal() && mContent.literal()) return;
    mContent = text;
    nodeChanged();
    if (validator() && hasStyleClass("Wt-invalid")) validate();
}

void WLineEdit::setTextSize(int chars) {
    if (mTextSize == chars) return;
    mTextSize = chars;
    nodeChanged();
}

void WLineEdit::setMaxLength(int length) {
    if (mMaxLength == length) return;
    mMaxLength = length;
    nodeChanged();
}

void WLineEdit::setEchoMode(EchoMode echoMode) {
    mEchoMode = echoMode;
    nodeChanged();
}

void WLineEdit::setAutoComplete(bool enabled) {
    mAutoComplete = enabled;
    nodeChanged();
}

WString WLineEdit::displayText() const {
    if (mEchoMode == Normal) return mContent;
    const std::string text = mContent.toUTF8();
    std::string stars;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80) stars += '*';
    return stars;
}

int WLineEdit::selectionStart() const {
    return Impl::TextSelection(*this).start();
}

WString WLineEdit::selectedText() const {
    return Impl::TextSelection(*this).of(mContent);
}

int WLineEdit::cursorPosition() const {
    return Impl::TextSelection(*this).caret();
}

WValidator::State WLineEdit::validate() {
    return WFormWidget::validate();
}

void WLineEdit::browserValue(const boost::json::value& value) {
    if (!value.is_string() || isReadOnly()) return;
    const std::string_view sent = value.get_string();
    if (sent.size() > Impl::kMaxFieldBytes) return;
    mContent = WString::fromUTF8(Impl::cutTo(Impl::normalizeLines(sent, true), mMaxLength), true);
    if (auto* renderer = Impl::Renderer::current())
        renderer->shownByBrowser(*this, "value", Impl::jsonText(sent));
    nodeChanged();
}

void WLineEdit::describe(Impl::ElementSpec& spec) {
    WFormWidget::describe(spec);
    spec.attribute("type", mEchoMode == Password ? "password" : "text");
    spec.attribute("size", std::to_string(mTextSize));
    if (mMaxLength >= 0) spec.attribute("maxlength", std::to_string(mMaxLength));
    if (!mAutoComplete) spec.attribute("autocomplete", mEchoMode == Password ? "new-password" : "off");
    spec.listen("value");
    spec.property("value", mContent.toUTF8());
}

} // namespace Wt
