#pragma once

#include <Wt/WSortFilterProxyModel>

/// Sorts every column by the natural order of MirlUtil_lessThan, so that "rx9" stands before "rx10". A cell
/// that holds no std::string comes neither before nor after another.
class WNumericSortFilterProxyModel : public Wt::WSortFilterProxyModel {
public:
    explicit WNumericSortFilterProxyModel(Wt::WObject* parent = nullptr);

protected:
    bool lessThan(const Wt::WModelIndex& left, const Wt::WModelIndex& right) const override;
};
