#include <Wt/WTextArea.h>

#include "forms/FieldText.h"
#include "forms/TextSelection.h"
#include "web/ElementSpec.h"
#include "web/JsonText.h"
#include "web/Renderer.h"

#include <boost/json/value.hpp>

namespace Wt {

WTextArea::WTextArea(WContainerWidget* parent) : WFormWidget(parent) {}
WTextArea::WTextArea(const WString& text, WContainerWidget* parent) : WFormWidget(parent), mContent(text) {}

void WTextArea::setText(const WString& text) {
    if (text == mContent && text.literal() && mContent.literal()) return;
    mContent = text;
    nodeChanged();
    if (validator() && hasStyleClass("Wt-invalid")) validate();
}

void WTextArea::setColumns(int columns) {
    mColumns = columns;
    nodeChanged();
}

void WTextArea::setRows(int rows) {
    mRows = rows;
    nodeChanged();
}

int WTextArea::selectionStart() const {
    return Impl::TextSelection(*this).start();
}

WString WTextArea::selectedText() const {
    return Impl::TextSelection(*this).of(mContent);
}

int WTextArea::cursorPosition() const {
    return Impl::TextSelection(*this).caret();
}

WValidator::State WTextArea::validate() {
    return WFormWidget::validate();
}

void WTextArea::browserValue(const boost::json::value& value) {
    if (!value.is_string() || isReadOnly()) return;
    const std::string_view sent = value.get_string();
    if (sent.size() > Impl::kMaxFieldBytes) return;
    mContent = WString::fromUTF8(Impl::normalizeLines(sent, false), true);
    if (auto* renderer = Impl::Renderer::current())
        renderer->shownByBrowser(*this, "value", Impl::jsonText(sent));
    nodeChanged();
}

void WTextArea::describe(Impl::ElementSpec& spec) {
    WFormWidget::describe(spec);
    spec.attribute("cols", std::to_string(mColumns));
    spec.attribute("rows", std::to_string(mRows));
    spec.listen("value");
    // Browsers give "\n" back whatever was set: told the same way, so that the two compare equal.
    spec.property("value", Impl::normalizeLines(mContent.toUTF8(), false));
}

} // namespace Wt
