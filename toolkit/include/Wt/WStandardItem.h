#pragma once

#include <Wt/WAbstractItemModel.h>
#include <Wt/WLink.h>

namespace Wt {

class WStandardItemModel;

namespace Impl {
class ItemCell;
}

/// One item of a WStandardItemModel, with its data by role and a table of children that it owns.
class WStandardItem {
public:
    WStandardItem();
    explicit WStandardItem(const WString& text);
    WStandardItem(const std::string& iconUri, const WString& text);
    WStandardItem(int rows, int columns = 1);
    virtual ~WStandardItem();
    WStandardItem(const WStandardItem&) = delete;
    WStandardItem& operator=(const WStandardItem&) = delete;

    void setText(const WString& text);
    WString text() const;
    void setIcon(const std::string& uri);
    std::string icon() const;
    void setStyleClass(const WString& styleClass);
    WString styleClass() const;
    void setToolTip(const WString& toolTip);
    WString toolTip() const;
    void setLink(const WLink& link);
    WLink link() const;
    void setChecked(bool checked);
    bool isChecked() const;
    void setCheckable(bool checkable);
    bool isCheckable() const;
    void setFlags(WFlags<ItemFlag> flags);
    WFlags<ItemFlag> flags() const;

    /// EditRole and DisplayRole are one and the same value.
    virtual void setData(const boost::any& data, int role = UserRole);
    virtual boost::any data(int role = UserRole) const;

    bool hasChildren() const;
    void setRowCount(int rows);
    int rowCount() const;
    void setColumnCount(int columns);
    int columnCount() const;

    /// Items are taken over; a null one is a cell without an item.
    void appendColumn(const std::vector<WStandardItem*>& items);
    void insertColumn(int column, const std::vector<WStandardItem*>& items);
    void insertColumns(int column, int count);
    void appendRow(const std::vector<WStandardItem*>& items);
    void insertRow(int row, const std::vector<WStandardItem*>& items);
    void insertRows(int row, int count);
    void appendRow(WStandardItem* item);
    void insertRow(int row, WStandardItem* item);
    void appendRows(const std::vector<WStandardItem*>& items);
    void insertRows(int row, const std::vector<WStandardItem*>& items);
    void removeColumn(int column);
    void removeColumns(int column, int count);
    void removeRow(int row);
    void removeRows(int row, int count);

    void setChild(int row, int column, WStandardItem* item);
    void setChild(int row, WStandardItem* item);
    WStandardItem* child(int row, int column = 0) const;
    WStandardItem* takeChild(int row, int column); ///< the caller owns it
    std::vector<WStandardItem*> takeColumn(int column);
    std::vector<WStandardItem*> takeRow(int row);

    WModelIndex index() const;
    WStandardItemModel* model() const;
    WStandardItem* parent() const; ///< null for an item of the top level
    int row() const;               ///< -1 without a parent
    int column() const;            ///< -1 without a parent

    virtual WStandardItem* clone() const; ///< data and flags, no children
    virtual void sortChildren(int column, SortOrder order);

protected:
    virtual bool operator<(const WStandardItem& other) const; ///< compares the model's sortRole()

private:
    friend class WStandardItemModel;

    struct Rare; // data of seldom roles, children, model: made on first use
    Rare& rare();
    Impl::ItemCell* cell(int row, int column) const; ///< null when out of range
    WStandardItem* itemAt(int row, int column);      ///< made when there is none; null when out of range
    void put(Impl::ItemCell& cell, WStandardItem* item, int row);
    void changed(int row, int column);

    WStandardItem* mParent = nullptr;
    mutable int mRow = -1; ///< where it was last found in the parent
    WFlags<ItemFlag> mFlags = ItemIsSelectable;
    boost::any mValue; ///< DisplayRole
    std::unique_ptr<Rare> mRare;
};

} // namespace Wt
