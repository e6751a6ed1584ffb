#pragma once

#include <boost/json/fwd.hpp>

namespace Wt {

class WValidator;

namespace Impl {

/// What the browser is to check while the user types (client/validate.js), as an object:
/// `mandatory`, `blank` (message); `pattern`, `ignoreCase`, `noMatch`; or `bottom`, `top`, `notANumber`,
/// `tooSmall`, `tooLarge`; and `filter` for single characters. A validator of the application's own gives
/// only the first two: the server decides about the rest.
boost::json::object clientRule(const WValidator& validator);

} // namespace Impl
} // namespace Wt
