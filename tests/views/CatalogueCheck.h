#pragma once

#include "widgets/WWidgetZeq.h"

#include <Wt/WWidget>

#include <string>
#include <string_view>
#include <vector>

/// Where a bound widget and the service's catalogue disagree, a sentence each: resource, key and shape, the
/// texts and numbers that one takes and the other refuses, the choices that one has and the other lacks.
/// Asked of the widget itself, by entering values, and of the service's own reader of requests.
/// The widget's value is lost.
std::vector<std::string> catalogueFaultsOf(WWidgetZeq& bound);

/// The same of all bound widgets in `top`, each with "resource/key: " in front; `count` is how many there are.
std::vector<std::string> catalogueFaultsIn(Wt::WWidget* top, std::size_t& count);
