#pragma once

#include "views/devices/tabs/DevTableStatusTab.h"
#include "widgets/WWidgetZeq.h"

#include <Wt/WTable>

#include <array>
#include <vector>

namespace Wt {
class WText;
}

class WUInt32Zeq;
class WVideoResolution;

/// Video timings of Receivers: what comes in, what goes out, what the monitor prefers.
class WDevViewRxVideoTable : public Wt::WTable {
public:
    explicit WDevViewRxVideoTable(Wt::WContainerWidget* parent = nullptr);

    /// A single Receiver that is not ready leaves the values as they are.
    void readFromDatabase(const std::vector<unsigned>& indexes, bool force);
    void clearValues();

private:
    /// One timing object of the Receiver's record.
    struct Column {
        const char* object = nullptr;
        WVideoResolution* resolution = nullptr;
        std::array<WUInt32Zeq*, 15> numbers{}; // by row of the table, from the first below the headings
        std::vector<WWidgetZeq*> bound;        // what the record holds, in row order
        std::vector<Wt::WText*> texts;         // every value
    };
    static constexpr int kColumnCount = 3;

    void addRows(Column& column, int place);
    void fill(Column& column, const json_t* timings, const std::vector<unsigned>& indexes);
    void computeFrequencies(Column& column);

    std::array<Column, kColumnCount> mColumns;
};

class WDevViewRxVideo : public DevTableStatusTab<WDevViewRxVideoTable> {
public:
    using DevTableStatusTab::DevTableStatusTab;
};
