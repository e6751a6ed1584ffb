#pragma once

#include <vector>

/// A tab of a details pane that only shows.
class StatusTab {
public:
    virtual ~StatusTab() = default;

    /// Shows the records of these indexes. Failures are silent.
    virtual void readFromDatabase(const std::vector<unsigned>& indexes) = 0;
};
