#pragma once

#include <Wt/WGlobal.h>

namespace Wt {
class WLayoutItem;
class WLength;
class WWidget;
namespace Impl {

class ElementSpec;

/// Aligns an item in its cell: `align-self` or `justify-self` by `property`, from the flags of that
/// direction. Without a flag the item fills the cell; a size that was set is a minimum then, unless it
/// follows the layout's size itself.
void describeAlignment(ElementSpec& spec, const WLayoutItem* item, WFlags<AlignmentFlag> alignment,
                       bool horizontal, const char* property, bool followsSize);

} // namespace Impl
} // namespace Wt
