#pragma once

#include <vector>

/// A tab of the details pane that only shows.
class DevStatusTab {
public:
    virtual ~DevStatusTab() = default;

    /// Shows the records of these indexes, all of the tab's kind. Failures are silent.
    virtual void readFromDatabase(const std::vector<unsigned>& indexes) = 0;
};
