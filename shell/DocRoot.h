#pragma once

#include <cstddef>

constexpr std::size_t kDocRootSize = 128; // bytes, the closing NUL included

/// Document root, NUL-terminated. Written once before the server starts, read only afterwards.
extern char Main_docRoot[kDocRootSize];

/// Finds the document root in the command line: the last argument that begins with "--docroot" and has a
/// value in the same argument behind any mix of "=" and white space. A value in the next argument is not
/// taken. Without one, environment variable WT_APP_ROOT, else ".". A value is cut to 127 bytes. root: buffer
/// of kDocRootSize bytes.
void DocRoot_find(int argc, const char* const* argv, char* root);
