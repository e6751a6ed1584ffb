#pragma once

#include <Wt/WAbstractItemModel.h>

#include <functional>
#include <set>
#include <utility>

namespace Wt::Impl {

/// What is selected in a view, and which row the keyboard stands on.
/// Positions are those of the model's top level; with SelectRows only column 0 stands for its row.
/// Operations tell whether the selection has changed.
class ViewSelection {
public:
    using Place = std::pair<int, int>; ///< row, column
    using Selectable = std::function<bool(Place)>;

    SelectionMode mode = NoSelection;
    SelectionBehavior behavior = SelectRows;

    const std::set<Place>& places() const { return mPlaces; }
    bool contains(int row, int column) const { return mPlaces.contains(normal({row, column})); }
    bool containsRow(int row) const; ///< anything in it
    int current() const {
        return mCurrent;
    } ///< row that the keyboard stands on; -1 = none; may be past the end

    bool assign(const std::set<Place>& places); ///< cut down to what the mode allows
    bool apply(Place place, SelectionFlag how);

    /// A click, or a key that acts on a row: alone it selects just this, Ctrl toggles, Shift extends from the
    /// last one that was not a Shift.
    bool click(Place place, bool shift, bool ctrl, const Selectable& selectable);
    /// The keyboard moves to a row: alone it selects it, Shift extends, Ctrl only moves.
    bool moveTo(int row, bool shift, bool ctrl, const Selectable& selectable);
    bool selectAll(int rows, int columns, const Selectable& selectable);

    void rowsInserted(int first, int count, int rowsBefore);
    bool rowsRemoved(int first, int count, int rowsBefore);
    void columnsInserted(int first, int count);
    bool columnsRemoved(int first, int count);
    bool clear(); ///< nothing selected, and nowhere for the keyboard

    /// Around a change of the model's layout: the same items stay selected.
    void beforeLayout(const WAbstractItemModel& model);
    bool afterLayout();

    /// To be called before drawing. After a model was emptied and filled again the keyboard stays on the row
    /// number it had, or on the selected row next to it.
    void settle(int rows);

private:
    Place normal(Place place) const { return behavior == SelectRows ? Place(place.first, 0) : place; }
    bool select(Place from, Place to, bool keep, const Selectable& selectable);
    template <typename Move>
    bool renumber(Move move);

    std::set<Place> mPlaces;
    Place mAnchor{-1, 0};
    int mCurrent = -1;
    bool mRebuilt = false; ///< the model has been empty since the last settle()
    WModelIndexList mRaw;
    std::size_t mRawCount = 0;
};

} // namespace Wt::Impl
