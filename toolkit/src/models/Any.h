#pragma once

#include <boost/any.hpp>

namespace Wt::Impl {

/// Whether two values of a model are the same. Values of types that models seldom hold count as different.
bool sameValue(const boost::any& a, const boost::any& b);

/// The order in which a model sorts values that need not be of one type: empty ones first,
/// then numbers, then texts.
bool valueLess(const boost::any& a, const boost::any& b);

} // namespace Wt::Impl
