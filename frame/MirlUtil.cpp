#include "frame/MirlUtil.h"

#include <Wt/WSortFilterProxyModel>
#include <Wt/WStandardItemModel>

#include <cstdio>
#include <string>

namespace {

boost::any cellOf(const Wt::WModelIndex& index, Wt::WStandardItemModel* model,
                  Wt::WSortFilterProxyModel* proxy, int column) {
    const Wt::WModelIndex source = proxy->mapToSource(index);
    return source.isValid() ? model->data(source.row(), column, Wt::EditRole) : boost::any();
}

} // namespace

void MirlUtil_modelIndexToZeqIndex(const Wt::WModelIndex& index, Wt::WStandardItemModel* model,
                                   Wt::WSortFilterProxyModel* proxy, unsigned int& zeqIndex) {
    const boost::any cell = cellOf(index, model, proxy, 0);
    const unsigned int* value = boost::any_cast<unsigned int>(&cell);
    zeqIndex = value ? *value : 0;
}

void MirlUtil_modelIndexToEid(const Wt::WModelIndex& index, Wt::WStandardItemModel* model,
                              Wt::WSortFilterProxyModel* proxy, unsigned int column, char* eid) {
    const boost::any cell = cellOf(index, model, proxy, static_cast<int>(column));
    const std::string* text = boost::any_cast<std::string>(&cell);
    std::snprintf(eid, kEidBufferSize, "%s", text ? text->c_str() : "");
}

void MirlUtil_modelIndexSetToZeqIndexVect(const std::set<Wt::WModelIndex>& indexes,
                                          Wt::WStandardItemModel* model, Wt::WSortFilterProxyModel* proxy,
                                          std::vector<unsigned int>& zeqIndexes) {
    for (const Wt::WModelIndex& index : indexes) {
        unsigned int zeqIndex = 0;
        MirlUtil_modelIndexToZeqIndex(index, model, proxy, zeqIndex);
        if (zeqIndex != 0) zeqIndexes.push_back(zeqIndex);
    }
}
