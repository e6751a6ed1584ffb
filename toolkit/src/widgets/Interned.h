#pragma once

#include <string>

namespace Wt::Impl {

/// One copy per process of a text that many widgets share (style classes). Lives for ever;
/// null for the empty text.
const std::string* interned(const std::string& text);

} // namespace Wt::Impl
