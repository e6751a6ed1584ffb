#pragma once

#include <Wt/WGlobal.h>

#include <boost/any.hpp>

#include <cstdint>
#include <set>
#include <vector>

namespace Wt {

class WAbstractItemModel;

enum SortOrder { AscendingOrder, DescendingOrder };

enum ItemFlag {
    ItemIsSelectable = 0x1,
    ItemIsEditable = 0x2,
    ItemIsUserCheckable = 0x4,
    ItemIsDragEnabled = 0x8,
    ItemIsDropEnabled = 0x10,
    ItemIsTristate = 0x20,
    ItemIsXHTMLText = 0x40,
    ItemHasDeferredChildren = 0x80
};
W_DECLARE_OPERATORS_FOR_FLAGS(ItemFlag)

enum HeaderFlag {
    ColumnIsCollapsed = 0x1,
    ColumnIsExpandedLeft = 0x2,
    ColumnIsExpandedRight = 0x4,
    HeaderIsUserCheckable = 0x8,
    HeaderIsTristate = 0x10,
    HeaderIsXHTMLText = 0x20
};
W_DECLARE_OPERATORS_FOR_FLAGS(HeaderFlag)

/// What a piece of an item's data is for.
enum ItemDataRole {
    DisplayRole = 0,      ///< text, number, date: shown
    DecorationRole = 1,   ///< URL of an icon
    EditRole = 2,         ///< as DisplayRole, for editing
    StyleClassRole = 3,   ///< style class of the cell (text)
    CheckStateRole = 4,   ///< bool or Wt::CheckState
    ToolTipRole = 5,      ///< text
    InternalPathRole = 6, ///< text
    LinkRole = 7,         ///< Wt::WLink
    MimeTypeRole = 8,
    LevelRole = 9, ///< level in an aggregated header
    UserRole = 32
};

enum SelectionMode { NoSelection = 0, SingleSelection = 1, ExtendedSelection = 3 };
enum SelectionBehavior { SelectItems = 0, SelectRows = 1 };
enum SelectionFlag { Select = 1, Deselect = 2, ToggleSelect = 3, ClearAndSelect = 4 };

/// An index of an item in a model: a position, good until the model changes. The default one is invalid, and
/// stands for the root.
class WModelIndex {
public:
    WModelIndex() = default;

    int row() const { return mRow; }       ///< -1 when invalid
    int column() const { return mColumn; } ///< -1 when invalid
    bool isValid() const { return mModel != nullptr; }
    const WAbstractItemModel* model() const { return mModel; }
    WModelIndex parent() const;
    WModelIndex child(int row, int column) const;
    boost::any data(int role = DisplayRole) const; ///< empty when invalid
    WFlags<ItemFlag> flags() const;
    int depth() const; ///< number of ancestors, the root included
    static bool isAncestor(const WModelIndex& index, const WModelIndex& ancestor);

    void* internalPointer() const {
        return reinterpret_cast<void*>(static_cast<std::uintptr_t>(mInternalId));
    }
    std::uint64_t internalId() const { return mInternalId; }

    bool operator==(const WModelIndex& other) const;
    bool operator!=(const WModelIndex& other) const { return !(*this == other); }

    /// The order in which a view shows them: a parent before its children, else by row, then by column. An
    /// invalid index comes first.
    bool operator<(const WModelIndex& other) const;

    /// Replaces the position by what the model's toRawIndex() gives, which survives a change of the layout. A
    /// raw index can only be decoded; decoding gives an invalid index when the item is gone.
    void encodeAsRawIndex();
    WModelIndex decodeFromRawIndex() const;
    bool isRawIndex() const { return mRaw; }

private:
    friend class WAbstractItemModel;
    WModelIndex(int row, int column, const WAbstractItemModel* model, std::uint64_t id)
        : mModel(model), mInternalId(id), mRow(row), mColumn(column) {}

    const WAbstractItemModel* mModel = nullptr;
    std::uint64_t mInternalId = 0;
    int mRow = -1;
    int mColumn = -1;
    bool mRaw = false;
};

using WModelIndexList = std::vector<WModelIndex>;
using WModelIndexSet = std::set<WModelIndex>;

} // namespace Wt
