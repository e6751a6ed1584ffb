#pragma once

#include "views/users/model/TargetAccess.h"

/// The favourites of the selected users: a sequence, shown if all have the same one. What can be added is what all
/// selected users may reach.
class TxFavorites : public TargetAccess {
public:
    static constexpr std::size_t kMostFavorites = 32;

    /// Reads everything. 0, or 1 on failure.
    unsigned populate(const Indexes& selection);
    void clear();

    /// The common favourites in their order, without Transmitters that are gone; none if the lists differ.
    const Items& getFavTargetItems() const { return targetItemsFav; }
    /// What can still be added, then targets in conflict, which are not to be offered.
    const Items& getAvailFavTargetItems() const { return targetItemsAvailFav; }
    /// The selected users' lists differ, in their order at least.
    bool favoritesDiffer() const { return favConflict; }

    /// Lists that differ are replaced. What passes 32 is dropped.
    void addToFavorites(const Indexes& indexes);
    void removeFromFavorites(const Indexes& indexes);
    void moveFavoriteUp(unsigned index);
    void moveFavoriteDown(unsigned index);

    /// Stores the list of each user, changed or not. Ends at the first failure. 0 or 1.
    unsigned writeToDatabase(std::vector<std::string>& errors) const;

private:
    void moveFavorite(unsigned index, bool up);
    void populateTargetFavSubset();
    void populateTargetItemsFav();
    void populateTargetItemSets();

    Indexes targetFavSubset;
    Items targetItemsFav;
    Items targetItemsAvailFav;
    bool favConflict = false;
};
