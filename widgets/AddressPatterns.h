#pragma once

// Regular expressions that a whole field must match. Those that end in "|^$" take an empty field as well,
// also where one is mandatory only to the page.

extern const char* const kEidPattern;
extern const char* const kIpV4Pattern;
extern const char* const kIpV6Pattern;
/// An IPv4 or IPv6 address, or nothing.
extern const char* const kIpPattern;
/// An address, a host name of at least two labels, or nothing.
extern const char* const kHostPattern;
/// Six or eight pairs of hexadecimal digits, all with colons or all with dashes, or nothing.
extern const char* const kMacPattern;
