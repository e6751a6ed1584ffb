#pragma once

#include "db/HeldRecords.h"
#include "frame/RecordTable.h"

/// A list of records of which the user picks one, by the name in its first visible column.
class WEstabSesTable : public RecordTable {
protected:
    template <class Record, std::size_t N>
    explicit WEstabSesTable(const RecordColumn<Record> (&columns)[N], Wt::WContainerWidget* parent = nullptr)
        : RecordTable(columns, parent) {
        sortByColumn(1, Wt::AscendingOrder);
    }

    /// Asks for all that decides whether a device is offered, with two requests: the devices, which it gives, and the
    /// records that tell which of them are in use.
    static const json_t* holdDevices(HeldRecords& held, const char* devices, const char* users,
                                     const HeldRecords::Keys& userKeys) {
        held.fetch(users, {}, userKeys);
        return held.fetch(devices, {}, {"eid", "name", "modeAllowed", "status", "upgradeStatus", "usage"});
    }
};
