#pragma once

#include <Wt/WBoostAny.h>
#include <Wt/WModelIndex.h>
#include <Wt/WObject.h>
#include <Wt/WSignal.h>

#include <map>
#include <memory>

namespace Wt {

enum MatchFlag {
    MatchExactly = 0x0,
    MatchStringExactly = 0x1,
    MatchStartsWith = 0x2,
    MatchEndsWith = 0x3,
    MatchRegExp = 0x4,
    MatchWildCard = 0x5,
    MatchCaseSensitive = 0x10,
    MatchWrap = 0x20
};
W_DECLARE_OPERATORS_FOR_FLAGS(MatchFlag)

/// Data for views: a table, or a tree of tables. Positions are from 0; a default WModelIndex is the root.
///
/// A change is told by a pair of signals: "about to be" while the model still has its old shape, and the
/// other when it has the new one; they never nest.
class WAbstractItemModel : public WObject {
public:
    using DataMap = std::map<int, boost::any>; ///< by role
    using HeaderData = DataMap;

    explicit WAbstractItemModel(WObject* parent = nullptr);
    ~WAbstractItemModel() override;

    virtual int columnCount(const WModelIndex& parent = WModelIndex()) const = 0;
    virtual int rowCount(const WModelIndex& parent = WModelIndex()) const = 0;
    virtual bool canFetchMore(const WModelIndex& parent) const;
    virtual void fetchMore(const WModelIndex& parent);
    virtual WFlags<ItemFlag> flags(const WModelIndex& index) const; ///< ItemIsSelectable
    virtual WFlags<HeaderFlag> headerFlags(int section, Orientation orientation = Horizontal) const;
    virtual bool hasChildren(const WModelIndex& index) const;
    virtual bool hasIndex(int row, int column, const WModelIndex& parent = WModelIndex()) const;
    virtual WModelIndex parent(const WModelIndex& index) const = 0;
    virtual boost::any data(const WModelIndex& index, int role = DisplayRole) const = 0;
    boost::any data(int row, int column, int role = DisplayRole,
                    const WModelIndex& parent = WModelIndex()) const;
    virtual DataMap itemData(const WModelIndex& index) const;
    virtual boost::any headerData(int section, Orientation orientation = Horizontal,
                                  int role = DisplayRole) const;
    virtual WModelIndex index(int row, int column, const WModelIndex& parent = WModelIndex()) const = 0;

    /// These return false, and change nothing, where the model cannot do it or the range is bad.
    virtual bool insertColumns(int column, int count, const WModelIndex& parent = WModelIndex());
    virtual bool insertRows(int row, int count, const WModelIndex& parent = WModelIndex());
    virtual bool removeColumns(int column, int count, const WModelIndex& parent = WModelIndex());
    virtual bool removeRows(int row, int count, const WModelIndex& parent = WModelIndex());
    virtual bool setData(const WModelIndex& index, const boost::any& value, int role = EditRole);
    virtual bool setHeaderData(int section, Orientation orientation, const boost::any& value,
                               int role = EditRole);
    bool setHeaderData(int section, const boost::any& value);
    virtual bool setItemData(const WModelIndex& index, const DataMap& values);
    bool insertColumn(int column, const WModelIndex& parent = WModelIndex());
    bool insertRow(int row, const WModelIndex& parent = WModelIndex());
    bool removeColumn(int column, const WModelIndex& parent = WModelIndex());
    bool removeRow(int row, const WModelIndex& parent = WModelIndex());
    bool setData(int row, int column, const boost::any& value, int role = EditRole,
                 const WModelIndex& parent = WModelIndex());

    virtual void sort(int column, SortOrder order = AscendingOrder);

    /// Items of start's column, from start on, whose `role` matches `value`; at most `hits`, or all with -1.
    virtual WModelIndexList match(const WModelIndex& start, int role, const boost::any& value, int hits = -1,
                                  WFlags<MatchFlag> flags = WFlags<MatchFlag>(MatchStartsWith) |
                                                            MatchWrap) const;

    /// Identity of an item through a change of the layout; null where the model has none (the base).
    virtual void* toRawIndex(const WModelIndex& index) const;
    virtual WModelIndex fromRawIndex(void* rawIndex) const;

    Signal<WModelIndex, int, int>& columnsAboutToBeInserted(); ///< parent, first, last
    Signal<WModelIndex, int, int>& columnsAboutToBeRemoved();
    Signal<WModelIndex, int, int>& columnsInserted();
    Signal<WModelIndex, int, int>& columnsRemoved();
    Signal<WModelIndex, int, int>& rowsAboutToBeInserted();
    Signal<WModelIndex, int, int>& rowsAboutToBeRemoved();
    Signal<WModelIndex, int, int>& rowsInserted();
    Signal<WModelIndex, int, int>& rowsRemoved();
    Signal<WModelIndex, WModelIndex>& dataChanged(); ///< top left, bottom right
    Signal<Orientation, int, int>& headerDataChanged();
    Signal<>& layoutAboutToBeChanged();
    Signal<>& layoutChanged();
    Signal<>& modelReset();

protected:
    WModelIndex createIndex(int row, int column, void* ptr) const;
    WModelIndex createIndex(int row, int column, std::uint64_t id) const;
    void beginInsertColumns(const WModelIndex& parent, int first, int last);
    void beginInsertRows(const WModelIndex& parent, int first, int last);
    void beginRemoveColumns(const WModelIndex& parent, int first, int last);
    void beginRemoveRows(const WModelIndex& parent, int first, int last);
    void endInsertColumns();
    void endInsertRows();
    void endRemoveColumns();
    void endRemoveRows();
    void reset(); ///< tells that everything has changed

private:
    struct SignalSet;
    SignalSet& signalsOf();
    struct Change {
        WModelIndex parent;
        int first = 0, last = 0;
    };
    std::unique_ptr<SignalSet> mSignals;
    Change mChange;
};

} // namespace Wt
