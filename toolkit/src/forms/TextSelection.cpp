#include "forms/TextSelection.h"

#include "forms/FieldText.h"
#include "web/WebSession.h"

#include <Wt/WFormWidget.h>

namespace Wt::Impl {

TextSelection::TextSelection(const WFormWidget& field) {
    const WebSession* session = WebSession::current();
    if (session && field.hasFocus()) mEnds = session->selection();
}

WString TextSelection::of(const WString& text) const {
    if (start() < 0) return {};
    const std::string whole = text.toUTF8();
    const std::size_t before = cutTo(whole, mEnds.first).size();
    const std::size_t selected = cutTo(whole, mEnds.second).size() - before;
    return WString::fromUTF8(whole.substr(before, selected));
}

} // namespace Wt::Impl
