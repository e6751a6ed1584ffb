#pragma once

#include <cstdarg>
#include <cstdio>
#include <string>

/// Appends a line; no line of the report has more than 255 characters.
[[gnu::format(printf, 2, 3)]] inline void appendFormatted(std::string& report, const char* format, ...) {
    char line[256];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    report += line;
}

/// Appends the bytes in brackets on a line of their own, below `indent`.
inline void appendBytes(std::string& report, const char* indent, const unsigned char* bytes, unsigned count) {
    report += indent;
    for (unsigned i = 0; i < count; ++i) appendFormatted(report, i == 0 ? "[%02X" : " %02X", bytes[i]);
    report += "]";
}

/// What a bit means when it is set, and when it is clear.
struct EdidFlag {
    int bit;
    const char *set, *clear;
};

inline void appendFlag(std::string& report, unsigned byte, const EdidFlag& flag) {
    report += (byte >> flag.bit) & 1 ? flag.set : flag.clear;
}

template <class Flags>
void appendFlags(std::string& report, unsigned byte, const Flags& flags) {
    for (const EdidFlag& flag : flags) appendFlag(report, byte, flag);
}
