#pragma once

#include <Wt/WString>

#include <cstddef>

/// "1 device was removed.", or the number and the words for several: "7 devices were removed.", "0 devices
/// ...". Both are message keys; the number is no part of the second.
Wt::WString countedText(std::size_t count, const char* oneKey, const char* manyKey);
