#pragma once

#include <ctime>
#include <string>
#include <unordered_map>

class RecordTable;

/// Since when the sessions of a list run: their durations go on between two readings, and nobody is asked.
class SessionClock {
public:
    void clear() { mStarts.clear(); }
    /// `record` is that of the list's row, `start` seconds since 1970 UTC.
    void add(unsigned record, std::time_t start) { mStarts[record] = start; }

    static std::string duration(std::time_t start);
    /// Writes the present durations into the column of a table of records; rows without a start stay as they are.
    void show(RecordTable& table, int column) const;

private:
    std::unordered_map<unsigned, std::time_t> mStarts;
};
