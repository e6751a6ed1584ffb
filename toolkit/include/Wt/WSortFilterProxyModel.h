#pragma once

#include <Wt/WAbstractProxyModel.h>
#include <Wt/WValidator.h>

namespace Wt {

/// Shows the rows of its source that pass a filter, in sorted order. Flat: it shows the source's top level.
///
/// The filter is a Perl-like regular expression that must match the whole text of a row's key column. An
/// empty one lets every row pass; one that cannot be compiled, or takes too long, lets none pass until a good
/// one is set.
///
/// With the dynamic sort filter on, a change of the source's data moves (layoutChanged()), adds and removes
/// rows here; off, only setting a filter, sort(), and new or removed rows do. Sorting is stable.
/// Rows whose sort key has no value come first, in the source's order, and last when descending;
/// lessThan() is not asked about them.
class WSortFilterProxyModel : public WAbstractProxyModel {
public:
    explicit WSortFilterProxyModel(WObject* parent = nullptr);
    ~WSortFilterProxyModel() override;

    void setFilterKeyColumn(int column); ///< default 0
    int filterKeyColumn() const;
    void setFilterRegExp(const WString& pattern); ///< default ""
    WString filterRegExp() const;
    void setFilterFlags(WFlags<RegExpFlag> flags);
    WFlags<RegExpFlag> filterFlags() const;
    void setFilterRole(int role); ///< default DisplayRole
    int filterRole() const;
    void setSortRole(int role); ///< default DisplayRole
    int sortRole() const;
    int sortColumn() const; ///< -1 when not sorted
    SortOrder sortOrder() const;
    void setDynamicSortFilter(bool enable); ///< default off
    bool dynamicSortFilter() const;

    /// Filters and sorts anew.
    void invalidate();

    WModelIndex mapFromSource(const WModelIndex& sourceIndex) const override;
    WModelIndex mapToSource(const WModelIndex& proxyIndex) const override;
    void setSourceModel(WAbstractItemModel* model) override;
    int columnCount(const WModelIndex& parent = WModelIndex()) const override;
    int rowCount(const WModelIndex& parent = WModelIndex()) const override;
    WModelIndex parent(const WModelIndex& index) const override;
    WModelIndex index(int row, int column, const WModelIndex& parent = WModelIndex()) const override;
    using WAbstractItemModel::setHeaderData;
    bool setHeaderData(int section, Orientation orientation, const boost::any& value,
                       int role = EditRole) override;
    boost::any headerData(int section, Orientation orientation = Horizontal,
                          int role = DisplayRole) const override;
    WFlags<HeaderFlag> headerFlags(int section, Orientation orientation = Horizontal) const override;
    bool insertRows(int row, int count, const WModelIndex& parent = WModelIndex()) override;
    bool removeRows(int row, int count, const WModelIndex& parent = WModelIndex()) override;

    /// Sorts stably; column -1 gives the source's order back.
    void sort(int column, SortOrder order = AscendingOrder) override;
    void* toRawIndex(const WModelIndex& index) const override;
    WModelIndex fromRawIndex(void* rawIndex) const override;

protected:
    virtual bool filterAcceptRow(int sourceRow, const WModelIndex& sourceParent) const;

    /// Order of two source indexes, by their sortRole(). The model stays sound with an inconsistent one; an
    /// exception counts as "not less".
    virtual bool lessThan(const WModelIndex& lhs, const WModelIndex& rhs) const;

private:
    struct State;

    void sourceRowsInserted(const WModelIndex& parent, int first, int last);
    void sourceRowsAboutToBeRemoved(const WModelIndex& parent, int first, int last);
    void sourceRowsRemoved(const WModelIndex& parent, int first, int last);
    void sourceColumnsAboutToBeInserted(const WModelIndex& parent, int first, int last);
    void sourceColumnsInserted();
    void sourceColumnsAboutToBeRemoved(const WModelIndex& parent, int first, int last);
    void sourceColumnsRemoved();
    void sourceDataChanged(const WModelIndex& topLeft, const WModelIndex& bottomRight);
    void sourceHeaderDataChanged(Orientation orientation, int first, int last);
    void sourceLayoutAboutToBeChanged();
    void sourceLayoutChanged();
    void sourceReset();

    bool shows(int sourceRow) const; ///< filterAcceptRow, and what it takes to give up on a costly filter
    bool keyless(int sourceRow) const;
    bool less(int sourceRow, int otherRow) const;
    bool before(int sourceRow, int otherRow) const;
    int placeOf(int sourceRow) const;
    bool inPlace(int sourceRow, int position) const;
    std::vector<int> sorted() const;
    void insertSorted(std::vector<int> sourceRows);
    void removeShown(std::vector<int> sourceRows);
    void filterAgain();
    void sortAgain();
    void replace(int sourceRow);

    std::unique_ptr<State> mState;
};

} // namespace Wt
