#pragma once

#include <string>

/// Moves a file, over one that is there: an upload out of the spool folder to where it is kept. False, with
/// both files untouched, if that fails.
bool moveFile(const std::string& from, const std::string& to);
