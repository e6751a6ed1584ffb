#pragma once

#include <Wt/WGlobal.h>

#include <string>

namespace Wt {
class WString;
namespace Impl {

class ElementSpec;

/// Tells a text of the given format as the contents of an element.
void describeText(ElementSpec& spec, const WString& text, TextFormat format);

/// False if `text` has to be shown as plain text: XHTML was wanted, and it is no well-formed XHTML.
bool readsAs(const WString& text, TextFormat format);

} // namespace Impl
} // namespace Wt
