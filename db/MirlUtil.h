#pragma once

#include <string>
#include <vector>

/// Duration by its largest unit: "1:02:03:04" (days), "2:03:04" (hours), "3:04" (minutes and seconds).
std::string MirlUtil_secsToFormattedTimeString(unsigned seconds);

/// Lower-cases the ASCII letters of a NUL-terminated text in place.
void MirlUtil_toLowercase(char* text);

/// Appends each error on a line of its own.
void MirlUtil_concatErrMsgs(std::string& text, const std::vector<std::string>& errors);

/// Natural order: behind a common beginning, two tails that are whole numbers compare as numbers ("rx9"
/// before "rx10"); everything else compares byte by byte.
///
/// The order contradicts itself in places ("a2" < "a10", "a10" < "a1b", and yet "a1b" < "a2"): never hand it
/// to std::sort and its like, which may then leave their bounds.
bool MirlUtil_lessThan(const std::string& a, const std::string& b);

/// Sorts by the natural order, stably. Texts over which it contradicts itself come in some order.
void MirlUtil_sort(std::vector<std::string>& texts);
