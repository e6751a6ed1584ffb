#include "views/users/model/TxFavorites.h"

#include "platform/client/ZeqReq.h"

#include <algorithm>

namespace {

void removeFirst(std::vector<unsigned>& list, unsigned index) {
    const auto found = std::ranges::find(list, index);
    if (found != list.end()) list.erase(found);
}

} // namespace

unsigned TxFavorites::populate(const Indexes& selection) {
    clear();
    if (selection.empty()) return 0;
    if (read(selection, true) != 0) return 1;
    populateTargetFavSubset();
    populateTargetItemSets();
    return 0;
}

void TxFavorites::clear() {
    clearTargets();
    targetFavSubset.clear();
    targetItemsFav.clear();
    targetItemsAvailFav.clear();
    favConflict = false;
}

void TxFavorites::populateTargetFavSubset() {
    if (targetsByUser.empty()) return;
    const Indexes& first = targetsByUser.front().favorites;
    favConflict =
        !std::ranges::all_of(targetsByUser, [&](const Targets& user) { return user.favorites == first; });
    targetFavSubset = favConflict ? Indexes() : first;
}

void TxFavorites::populateTargetItemsFav() {
    targetItemsFav.clear();
    append(targetItemsFav, targetFavSubset, false);
}

void TxFavorites::populateTargetItemSets() {
    populateTargetItemsFav();
    targetItemsAvailFav.clear();
    if (enableAll == ENABLE_ALL_YES) {
        targetItemsAvailFav = targetAllSet;
    } else {
        append(targetItemsAvailFav, targetAllAccessSubset, false);
        append(targetItemsAvailFav, targetConflictSet, true);
    }
    std::erase_if(targetItemsAvailFav, [this](const TargetItem& item) {
        return std::ranges::find(targetFavSubset, item.index) != targetFavSubset.end();
    });
}

void TxFavorites::addToFavorites(const Indexes& indexes) {
    if (favConflict)
        for (Targets& user : targetsByUser) user.favorites.clear();
    for (Targets& user : targetsByUser)
        for (const unsigned index : indexes)
            if (user.favorites.size() < kMostFavorites) user.favorites.push_back(index);
    populateTargetFavSubset();
    populateTargetItemSets();
}

void TxFavorites::removeFromFavorites(const Indexes& indexes) {
    for (const unsigned index : indexes) {
        for (Targets& user : targetsByUser) removeFirst(user.favorites, index);
        removeFirst(targetFavSubset, index);
    }
    populateTargetItemSets();
}

void TxFavorites::moveFavoriteUp(unsigned index) {
    moveFavorite(index, true);
}

void TxFavorites::moveFavoriteDown(unsigned index) {
    moveFavorite(index, false);
}

void TxFavorites::moveFavorite(unsigned index, bool up) {
    for (Targets& user : targetsByUser) {
        const auto found = std::ranges::find(user.favorites, index);
        if (found == user.favorites.end() ||
            found == (up ? user.favorites.begin() : user.favorites.end() - 1))
            continue;
        std::iter_swap(found, up ? found - 1 : found + 1);
    }
    populateTargetFavSubset();
    populateTargetItemsFav();
}

unsigned TxFavorites::writeToDatabase(std::vector<std::string>& errors) const {
    for (const Targets& user : targetsByUser)
        if (sendTargetList(ZeqReq_userNewUpdateReq(user.userIndex), "favorite", user.favorites, errors) != 0)
            return 1;
    return 0;
}
