// Records on the terminal: as one value, lines, a table, or JSON.
// Secrets never appear, control characters are escaped.
#ifndef PLATFORM_CTL_PRINT_H
#define PLATFORM_CTL_PRINT_H

#include <ctime>
#include <jansson.h>
#include <ostream>
#include <string>
#include <vector>

namespace zeqctl {

/// True for keys whose values are never shown: those that end in "password", in any letter case,
/// but for the switches that begin with "allow".
bool isSecret(const std::string& key);

/// The value at a path of keys with slashes; null when there is none.
const json_t* valueAt(const json_t* record, const std::string& path);

/// As a person reads it: objects and lists as compact JSON, an absent value as "",
/// points in time in local time.
std::string valueText(const json_t* value, const std::string& key);

/// As a script wants it: times as seconds, newlines as they are.
std::string bareText(const json_t* value, const std::string& key);

/// Local time, as 2026-11-23 04:05:06.
std::string timeText(std::time_t seconds);

/// Rows under headings as they are given, columns as wide as they need to be.
void printTable(std::ostream& out, const std::vector<std::string>& headings,
                const std::vector<std::vector<std::string>>& rows);

/// One line for each key of the record; nested objects with slashes.
void printRecord(std::ostream& out, const json_t* record);

/// JSON over several lines, or on one if `compact`, with secrets replaced by stars.
void printJson(std::ostream& out, const json_t* value, bool compact = false);

} // namespace zeqctl

#endif
