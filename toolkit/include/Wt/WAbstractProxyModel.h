#pragma once

#include <Wt/WAbstractItemModel.h>

namespace Wt {

/// A model that shows another one, its source, which it does not own.
class WAbstractProxyModel : public WAbstractItemModel {
public:
    explicit WAbstractProxyModel(WObject* parent = nullptr);
    ~WAbstractProxyModel() override;

    virtual WModelIndex mapFromSource(const WModelIndex& sourceIndex) const = 0;
    virtual WModelIndex mapToSource(const WModelIndex& proxyIndex) const = 0;
    virtual void setSourceModel(WAbstractItemModel* sourceModel);
    WAbstractItemModel* sourceModel() const { return mSource; }

    using WAbstractItemModel::data;
    boost::any data(const WModelIndex& index, int role = DisplayRole) const override;
    boost::any headerData(int section, Orientation orientation = Horizontal,
                          int role = DisplayRole) const override;
    using WAbstractItemModel::setData;
    bool setData(const WModelIndex& index, const boost::any& value, int role = EditRole) override;
    using WAbstractItemModel::setHeaderData;
    bool setHeaderData(int section, Orientation orientation, const boost::any& value,
                       int role = EditRole) override;
    WFlags<ItemFlag> flags(const WModelIndex& index) const override;
    WFlags<HeaderFlag> headerFlags(int section, Orientation orientation = Horizontal) const override;
    bool insertColumns(int column, int count, const WModelIndex& parent = WModelIndex()) override;
    bool removeColumns(int column, int count, const WModelIndex& parent = WModelIndex()) override;

private:
    WAbstractItemModel* mSource = nullptr;
};

} // namespace Wt
