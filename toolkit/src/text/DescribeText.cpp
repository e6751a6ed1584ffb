#include "text/DescribeText.h"

#include "text/XhtmlFilter.h"
#include "web/ElementSpec.h"

#include <Wt/WString.h>

namespace Wt::Impl {

void describeText(ElementSpec& spec, const WString& text, TextFormat format) {
    const std::string value = text.toUTF8();
    if (format != PlainText && !isPlain(value))
        if (const auto nodes = filterXhtml(value)) return spec.body(*nodes);
    if (!value.empty()) spec.text(value);
}

bool readsAs(const WString& text, TextFormat format) {
    if (format == PlainText) return true;
    const std::string value = text.toUTF8();
    return isPlain(value) || filterXhtml(value);
}

} // namespace Wt::Impl
