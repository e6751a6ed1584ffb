#pragma once

#include <string>

/// What MirlUtil_validate24x24PngFile found.
enum PngVerdict { PNG_GOOD = 0, PNG_BAD = 1, PNG_TOO_LARGE = 8 };

/// Whether a file can be an icon: at most 10 MiB, and begins as a PNG of 24 by 24 pixels does (signature and IHDR
/// chunk, ISO/IEC 15948). On purpose nothing behind its first 24 bytes is looked at: a browser shows a broken
/// picture as such.
int MirlUtil_validate24x24PngFile(const std::string& path);
