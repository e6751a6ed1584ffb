#ifndef PLATFORM_CTL_ERRORTEXT_H
#define PLATFORM_CTL_ERRORTEXT_H

namespace zeqctl {

/// English words for an error number of the service; "unknown error" for one that is not listed.
const char* errorText(int number);

} // namespace zeqctl

#endif
