#pragma once

#include <string>
#include <string_view>

/// "location" and "filename" of a firmware file as one text, with one "/" between them unless either side
/// brings a slash or backslash.
std::string joinedFileName(const std::string& location, const std::string& fileName);

/// Where an uploaded firmware file is put: below /tmp, under the last part of the name that the file had in
/// the browser. Empty if that leaves no usable name.
std::string uploadTarget(std::string_view clientFileName);
