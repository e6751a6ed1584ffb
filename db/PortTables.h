#pragma once

#include <map>
#include <string>
#include <utility>

/// Where devices are plugged in. While one lives, the port lookups of Db on this thread read each port table
/// at most once, instead of once for each device: for reading many devices at one go. What changes meanwhile
/// is not seen. They may be nested; the outermost one counts.
class PortTables {
public:
    PortTables();
    ~PortTables();
    PortTables(const PortTables&) = delete;
    PortTables& operator=(const PortTables&) = delete;

    /// The one that lives on this thread, null if none does.
    static PortTables* held();

    using Place = std::pair<unsigned, unsigned>; // index of the Switch, number of the port

    std::map<std::string, Place> places; // by EID, of the tables that were read
    unsigned tables = 0;                 // read so far, from the first

private:
    PortTables* mOuter;
};
