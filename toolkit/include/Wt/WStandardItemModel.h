#pragma once

#include <Wt/WStandardItem.h>

#include <vector>

namespace Wt {

/// A model that holds its data. A cell comes into being with the first setData() on it; index() of a cell
/// that has none works all the same.
class WStandardItemModel : public WAbstractItemModel {
public:
    explicit WStandardItemModel(WObject* parent = nullptr);
    WStandardItemModel(int rows, int columns, WObject* parent = nullptr);
    ~WStandardItemModel() override;

    void clear(); ///< no rows, no columns, no headers; modelReset()
    WStandardItem* invisibleRootItem() const { return mRoot.get(); }
    WStandardItem* itemFromIndex(const WModelIndex& index) const; ///< made when there is none
    WModelIndex indexFromItem(const WStandardItem* item) const;

    void appendColumn(const std::vector<WStandardItem*>& items);
    void insertColumn(int column, const std::vector<WStandardItem*>& items);
    void appendRow(const std::vector<WStandardItem*>& items);
    void insertRow(int row, const std::vector<WStandardItem*>& items);
    void appendRow(WStandardItem* item);
    void insertRow(int row, WStandardItem* item);
    using WAbstractItemModel::insertColumn;
    using WAbstractItemModel::insertRow;

    WStandardItem* item(int row, int column = 0) const;
    void setItem(int row, int column, WStandardItem* item); ///< takes it over
    WStandardItem* itemPrototype() const;
    void setItemPrototype(WStandardItem* item); ///< takes it over
    std::vector<WStandardItem*> takeColumn(int column);
    std::vector<WStandardItem*> takeRow(int row);
    WStandardItem* takeItem(int row, int column = 0);

    void setHeaderFlags(int section, Orientation orientation, WFlags<HeaderFlag> flags);
    void setSortRole(int role); ///< default DisplayRole
    int sortRole() const { return mSortRole; }

    Signal<WStandardItem*>& itemChanged() { return mItemChanged; }

    WFlags<ItemFlag> flags(const WModelIndex& index) const override;
    WModelIndex parent(const WModelIndex& index) const override;
    using WAbstractItemModel::data;
    boost::any data(const WModelIndex& index, int role = DisplayRole) const override;
    boost::any headerData(int section, Orientation orientation = Horizontal,
                          int role = DisplayRole) const override;
    WFlags<HeaderFlag> headerFlags(int section, Orientation orientation = Horizontal) const override;
    WModelIndex index(int row, int column, const WModelIndex& parent = WModelIndex()) const override;
    int columnCount(const WModelIndex& parent = WModelIndex()) const override;
    int rowCount(const WModelIndex& parent = WModelIndex()) const override;
    bool insertColumns(int column, int count, const WModelIndex& parent = WModelIndex()) override;
    bool insertRows(int row, int count, const WModelIndex& parent = WModelIndex()) override;
    bool removeColumns(int column, int count, const WModelIndex& parent = WModelIndex()) override;
    bool removeRows(int row, int count, const WModelIndex& parent = WModelIndex()) override;
    using WAbstractItemModel::setData;
    bool setData(const WModelIndex& index, const boost::any& value, int role = EditRole) override;
    using WAbstractItemModel::setHeaderData;
    bool setHeaderData(int section, Orientation orientation, const boost::any& value,
                       int role = EditRole) override;
    void* toRawIndex(const WModelIndex& index) const override;
    WModelIndex fromRawIndex(void* rawIndex) const override;
    void sort(int column, SortOrder order = AscendingOrder) override;

private:
    friend class WStandardItem;
    struct Header {
        HeaderData data;
        WFlags<HeaderFlag> flags;
    };

    WStandardItem* tableOf(const WModelIndex& parent) const; ///< null when it has no children
    void tellChanged(WStandardItem* item, const WModelIndex& index);
    std::vector<Header>& headers(Orientation orientation);
    const std::vector<Header>& headers(Orientation orientation) const;

    std::unique_ptr<WStandardItem> mRoot;
    std::unique_ptr<WStandardItem> mPrototype;
    std::vector<Header> mColumnHeaders, mRowHeaders;
    int mSortRole = DisplayRole;
    Signal<WStandardItem*> mItemChanged;
};

} // namespace Wt
