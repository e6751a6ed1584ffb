#include "layout/ItemStyle.h"

#include "web/ElementSpec.h"

#include <Wt/WLayoutItem.h>
#include <Wt/WWidget.h>

namespace Wt::Impl {

namespace {

/// CSS keyword of the flags of one direction; null: fills.
const char* keyword(WFlags<AlignmentFlag> alignment, bool horizontal) {
    if (horizontal) {
        if (alignment & AlignLeft) return "start";
        if (alignment & AlignRight) return "end";
        if (alignment & AlignCenter) return "center";
        return nullptr;
    }
    if (alignment & AlignTop) return "start";
    if (alignment & AlignBottom) return "end";
    if (alignment & AlignMiddle) return "center";
    if (alignment & AlignBaseline) return "baseline";
    return nullptr;
}

} // namespace

void describeAlignment(ElementSpec& spec, const WLayoutItem* item, WFlags<AlignmentFlag> alignment,
                       bool horizontal, const char* property, bool followsSize) {
    if (const char* self = keyword(alignment, horizontal)) {
        spec.style(property, self);
        return;
    }
    const WWidget* widget = const_cast<WLayoutItem*>(item)->widget();
    if (!widget) return;
    const WLength size = horizontal ? widget->width() : widget->height();
    if (size.isAuto()) return;
    spec.style(horizontal ? "width" : "height", "auto");
    const WLength least = horizontal ? widget->minimumWidth() : widget->minimumHeight();
    if (least.value() == 0 && !followsSize)
        spec.style(horizontal ? "min-width" : "min-height", size.cssText());
}

} // namespace Wt::Impl
