#pragma once

#include <Wt/WString.h>

#include <boost/any.hpp>

namespace Wt {

/// The text that a view shows for a value of a model: strings and WString as they stand,
/// numbers by `format` (printf, or a default), bool as "true" or "false".
/// Empty for an empty value and for a type that is not known.
WString asString(const boost::any& value, const WString& format = WString());

/// The value as a number; NaN when it is none.
double asNumber(const boost::any& value);

} // namespace Wt
