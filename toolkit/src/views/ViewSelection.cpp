#include "views/ViewSelection.h"

#include <algorithm>
#include <cstdlib>

namespace Wt::Impl {

bool ViewSelection::containsRow(int row) const {
    const auto found = mPlaces.lower_bound({row, 0});
    return found != mPlaces.end() && found->first == row;
}

bool ViewSelection::assign(const std::set<Place>& places) {
    std::set<Place> next;
    for (const Place& place : places) {
        if (mode == NoSelection || (mode == SingleSelection && !next.empty())) break;
        next.insert(normal(place));
    }
    if (next == mPlaces) return false;
    mPlaces.swap(next);
    if (!mPlaces.empty()) {
        mAnchor = *mPlaces.begin();
        if (!mPlaces.contains(normal({mCurrent, mAnchor.second}))) mCurrent = mAnchor.first;
    }
    return true;
}

bool ViewSelection::clear() {
    const bool changed = !mPlaces.empty();
    mPlaces.clear();
    mAnchor = {-1, 0};
    mCurrent = -1;
    return changed;
}

bool ViewSelection::apply(Place place, SelectionFlag how) {
    place = normal(place);
    std::set<Place> next = mPlaces;
    const bool add = how == ToggleSelect ? !next.contains(place) : how != Deselect;
    if (how == ClearAndSelect || (add && mode != ExtendedSelection)) next.clear();
    if (add)
        next.insert(place);
    else
        next.erase(place);
    return assign(next);
}

/// Selects the rectangle; what was selected before stays when `keep` is set.
bool ViewSelection::select(Place from, Place to, bool keep, const Selectable& selectable) {
    std::set<Place> next;
    if (keep) next = mPlaces;
    const auto [top, bottom] = std::minmax(from.first, to.first);
    const auto [left, right] = std::minmax(from.second, to.second);
    for (int row = top; row <= bottom; ++row)
        for (int column = left; column <= right; ++column)
            if (selectable({row, column})) next.insert({row, column});
    if (next == mPlaces) return false;
    mPlaces.swap(next);
    return true;
}

bool ViewSelection::click(Place place, bool shift, bool ctrl, const Selectable& selectable) {
    place = normal(place);
    mCurrent = place.first;
    if (mode == NoSelection) return false;
    if (mode == ExtendedSelection && shift && mAnchor.first >= 0)
        return select(mAnchor, place, ctrl, selectable);
    mAnchor = place;
    if (!selectable(place)) return false;
    if (!ctrl) return select(place, place, false, selectable);
    const Place anchor = place;
    const bool changed = apply(place, ToggleSelect);
    mAnchor = anchor;
    mCurrent = place.first;
    return changed;
}

bool ViewSelection::moveTo(int row, bool shift, bool ctrl, const Selectable& selectable) {
    if (ctrl && !shift && mode == ExtendedSelection) {
        mCurrent = row;
        return false;
    }
    const int column = mAnchor.first >= 0 ? mAnchor.second : 0;
    return click({row, column}, shift, false, selectable);
}

bool ViewSelection::selectAll(int rows, int columns, const Selectable& selectable) {
    if (mode != ExtendedSelection || !rows) return false;
    return select({0, 0}, {rows - 1, behavior == SelectRows ? 0 : columns - 1}, false, selectable);
}

/// `move` alters a place, or returns false for one that is gone.
template <typename Move>
bool ViewSelection::renumber(Move move) {
    std::set<Place> next;
    for (Place place : mPlaces)
        if (move(place)) next.insert(next.end(), place);
    const bool lost = next.size() != mPlaces.size();
    mPlaces.swap(next);
    return lost;
}

void ViewSelection::rowsInserted(int first, int count, int rowsBefore) {
    renumber([&](Place& place) {
        if (place.first >= first) place.first += count;
        return true;
    });
    if (rowsBefore == 0 || mRebuilt) return;
    if (mCurrent >= first) mCurrent += count;
    if (mAnchor.first >= first) mAnchor.first += count;
}

bool ViewSelection::rowsRemoved(int first, int count, int rowsBefore) {
    if (count == rowsBefore) mRebuilt = true;
    if (!mRebuilt) {
        const auto follow = [&](int row) { return row < first ? row : std::max(first, row - count); };
        mCurrent = follow(mCurrent);
        mAnchor.first = follow(mAnchor.first);
    }
    return renumber([&](Place& place) {
        if (place.first < first) return true;
        place.first -= count;
        return place.first >= first;
    });
}

void ViewSelection::columnsInserted(int first, int count) {
    if (behavior == SelectRows) return;
    renumber([&](Place& place) {
        if (place.second >= first) place.second += count;
        return true;
    });
}

bool ViewSelection::columnsRemoved(int first, int count) {
    if (behavior == SelectRows) return false;
    return renumber([&](Place& place) {
        if (place.second < first) return true;
        place.second -= count;
        return place.second >= first;
    });
}

void ViewSelection::beforeLayout(const WAbstractItemModel& model) {
    mRaw.clear();
    mRawCount = mPlaces.size();
    const auto keep = [&](Place place) {
        WModelIndex index = model.index(place.first, place.second);
        index.encodeAsRawIndex();
        mRaw.push_back(index);
    };
    for (const Place& place : mPlaces) keep(place);
    if (mRebuilt) return;
    keep({mCurrent, 0});
    keep(mAnchor);
}

bool ViewSelection::afterLayout() {
    std::set<Place> next;
    for (std::size_t i = 0; i < mRawCount; ++i) {
        const WModelIndex index = mRaw[i].decodeFromRawIndex();
        if (index.isValid()) next.insert({index.row(), index.column()});
    }
    const bool lost = next.size() != mPlaces.size();
    mPlaces.swap(next);
    if (mRaw.size() == mRawCount + 2) {
        const WModelIndex current = mRaw[mRawCount].decodeFromRawIndex();
        const WModelIndex anchor = mRaw[mRawCount + 1].decodeFromRawIndex();
        if (current.isValid()) mCurrent = current.row();
        if (anchor.isValid()) mAnchor = {anchor.row(), anchor.column()};
    }
    mRaw.clear();
    return lost;
}

void ViewSelection::settle(int rows) {
    if (mRebuilt && rows == 0) return; // it may be filled later: the keyboard's row is remembered
    if (mRebuilt && mCurrent >= 0 && !mPlaces.empty() && !containsRow(mCurrent)) {
        const auto distance = [this](const Place& place) { return std::abs(place.first - mCurrent); };
        const auto nearest =
            std::min_element(mPlaces.begin(), mPlaces.end(),
                             [&](const Place& a, const Place& b) { return distance(a) < distance(b); });
        mCurrent = nearest->first;
        mAnchor = *nearest;
    }
    mRebuilt = false;
    mCurrent = std::min(mCurrent, rows - 1);
    if (mAnchor.first >= rows) mAnchor.first = rows - 1;
}

} // namespace Wt::Impl
