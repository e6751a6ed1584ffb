#include <Wt/WAbstractProxyModel.h>

namespace Wt {

WAbstractProxyModel::WAbstractProxyModel(WObject* parent) : WAbstractItemModel(parent) {}
WAbstractProxyModel::~WAbstractProxyModel() = default;

void WAbstractProxyModel::setSourceModel(WAbstractItemModel* sourceModel) {
    mSource = sourceModel;
}

boost::any WAbstractProxyModel::data(const WModelIndex& index, int role) const {
    return mSource ? mSource->data(mapToSource(index), role) : boost::any();
}

boost::any WAbstractProxyModel::headerData(int section, Orientation orientation, int role) const {
    if (!mSource) return {};
    if (orientation == Vertical) {
        section = mapToSource(index(section, 0)).row();
        if (section < 0) return {};
    }
    return mSource->headerData(section, orientation, role);
}

bool WAbstractProxyModel::setData(const WModelIndex& index, const boost::any& value, int role) {
    return mSource && mSource->setData(mapToSource(index), value, role);
}

bool WAbstractProxyModel::setHeaderData(int section, Orientation orientation, const boost::any& value,
                                        int role) {
    if (!mSource) return false;
    if (orientation == Vertical) section = mapToSource(index(section, 0)).row();
    return mSource->setHeaderData(section, orientation, value, role);
}

WFlags<ItemFlag> WAbstractProxyModel::flags(const WModelIndex& index) const {
    return mSource ? mSource->flags(mapToSource(index)) : WFlags<ItemFlag>();
}

WFlags<HeaderFlag> WAbstractProxyModel::headerFlags(int section, Orientation orientation) const {
    if (!mSource) return {};
    if (orientation == Vertical) section = mapToSource(index(section, 0)).row();
    return mSource->headerFlags(section, orientation);
}

bool WAbstractProxyModel::insertColumns(int column, int count, const WModelIndex& parent) {
    return mSource && mSource->insertColumns(column, count, mapToSource(parent));
}

bool WAbstractProxyModel::removeColumns(int column, int count, const WModelIndex& parent) {
    return mSource && mSource->removeColumns(column, count, mapToSource(parent));
}

} // namespace Wt
