#pragma once

#include "views/users/model/TargetAccess.h"

/// The target lists of the selected users as one picture, and every edit of it. A private copy of what was read;
/// nothing is stored but by writeToDatabase().
class TxPermissions : public TargetAccess {
public:
    /// Reads everything. An empty selection: both lists are empty, getEnableAll() keeps its old value. 0, or 1 on failure.
    unsigned populate(const Indexes& selection);
    /// All but the Transmitters and getEnableAll().
    void clear();

    /// Targets that can be given, then those in conflict; targets that all have, then those in conflict. Both are
    /// empty with ENABLE_ALL_YES. A target in conflict stands in both: it can be moved either way.
    const Items& getAvailableTargetItems() const { return availableTargetItems; }
    const Items& getAllowedTargetItems() const { return allowedTargetItems; }
    const Items& getAllTargetItems() const { return allTargetItems; }

    /// Empties lists and subsets for ENABLE_ALL_YES; any other value is only stored. The users' own lists stay.
    void setEnableAll(EnableAll value);
    void addToAllowed(const Indexes& indexes);
    void removeFromAllowed(const Indexes& indexes);
    void allowAll();
    void disallowAll();

    /// Stores the access, unless mixed, then the list of each user, unless with access to all. Ends at the first
    /// failure; who was written before stays written. 0 or 1.
    unsigned writeToDatabase(std::vector<std::string>& errors) const;

private:
    void populateTargetItemSets();

    Items allTargetItems;
    Items availableTargetItems;
    Items allowedTargetItems;
};
