#pragma once

#include "widgets/SettingsField.h"

#include <span>

/// Reads fields of several records of a resource with one request: five hundred records are no ten thousand
/// exchanges. Fields of other resources, and those whose reading is more than a value of each record, are
/// left out. False, with every field as it was, when there is nothing to gain or the service refused.
bool readTogether(std::span<const SettingsField> fields, const char* resource,
                  const WWidgetZeq::Indexes& indexes, bool force);

/// Whether readTogether reads this field.
bool isReadTogether(const SettingsField& field, const char* resource);
