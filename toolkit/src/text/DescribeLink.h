#pragma once

#include <Wt/WGlobal.h>

namespace Wt {
class WLink;
namespace Impl {

class ElementSpec;

/// Tells where an `a` element leads to. A disabled one, or one whose URL could run code, leads nowhere.
void describeLink(ElementSpec& spec, const WLink& link, AnchorTarget target, bool enabled);

} // namespace Impl
} // namespace Wt
