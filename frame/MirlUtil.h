#pragma once

#include <Wt/WModelIndex.h>

#include <set>
#include <vector>

namespace Wt {
class WSortFilterProxyModel;
class WStandardItemModel;
} // namespace Wt

// From a row of a list to its record. Indexes are those of the proxy, as the table's selection gives them; an
// index of the proxy that maps to no row of the model reads as a cell of another type.

/// Bytes of an EID text with its end: six characters, a hyphen, six characters, NUL.
constexpr unsigned kEidBufferSize = 14;

/// Record index of the row, from the hidden column 0; 0 if that cell holds no unsigned int.
void MirlUtil_modelIndexToZeqIndex(const Wt::WModelIndex& index, Wt::WStandardItemModel* model,
                                   Wt::WSortFilterProxyModel* proxy, unsigned int& zeqIndex);

/// Text of the row's cell in `column`, cut to the buffer of kEidBufferSize bytes; empty
/// if the cell holds none.
void MirlUtil_modelIndexToEid(const Wt::WModelIndex& index, Wt::WStandardItemModel* model,
                              Wt::WSortFilterProxyModel* proxy, unsigned int column, char* eid);

/// Appends the record index of each row, in the set's order. Rows without one (index 0) are left out: nothing
/// may be done to a record that is none.
void MirlUtil_modelIndexSetToZeqIndexVect(const std::set<Wt::WModelIndex>& indexes,
                                          Wt::WStandardItemModel* model, Wt::WSortFilterProxyModel* proxy,
                                          std::vector<unsigned int>& zeqIndexes);
