#include "views/sessions/SessionClock.h"

#include "db/MirlUtil.h"
#include "frame/RecordTable.h"
#include "shell/WallClock.h"

#include <Wt/WStandardItemModel>

std::string SessionClock::duration(std::time_t start) {
    return MirlUtil_secsToFormattedTimeString(WallClock_secondsSince(start));
}

void SessionClock::show(RecordTable& table, int column) const {
    Wt::WStandardItemModel& records = *table.records();
    for (int row = 0; row < records.rowCount(); ++row) {
        const boost::any cell = records.data(row, 0, Wt::EditRole);
        const unsigned* record = boost::any_cast<unsigned>(&cell);
        const auto start = record ? mStarts.find(*record) : mStarts.end();
        if (start != mStarts.end()) records.setData(row, column, boost::any(duration(start->second)));
    }
}
