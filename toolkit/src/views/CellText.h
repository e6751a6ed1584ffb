#pragma once

#include <Wt/WAbstractItemModel.h>

#include <string>

namespace Wt::Impl {

/// Appends what a cell shows as JSON, in the form that TableShown describes.
void appendCell(std::string& json, const WAbstractItemModel& model, const WModelIndex& index);

} // namespace Wt::Impl
