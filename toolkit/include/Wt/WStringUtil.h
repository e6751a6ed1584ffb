#pragma once

#include <Wt/WString.h>

namespace Wt {

/// UTF-8 of wide text and back; what can't be decoded becomes U+FFFD.
std::string toUTF8(const std::wstring& value);
std::wstring fromUTF8(const std::string& value);
std::wstring widen(const std::string& value);
std::string narrow(const std::wstring& value);

} // namespace Wt
