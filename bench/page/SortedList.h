#pragma once

#include <Wt/WSortFilterProxyModel>
#include <Wt/WStandardItemModel>
#include <Wt/WTableView>

/// A list as the product's pages have it: a model that every refresh empties and fills again,
/// a proxy that sorts and filters, a view that hides the record index.
/// The view belongs to the parent, the models to the view.
class SortedList {
public:
    static constexpr int kColumns = 6;

    explicit SortedList(Wt::WContainerWidget* parent = nullptr);

    /// The same rows each time.
    void refill(int rows);

    Wt::WStandardItemModel& model() { return *mModel; }
    Wt::WSortFilterProxyModel& proxy() { return *mProxy; }
    Wt::WTableView& view() { return *mView; }

private:
    Wt::WTableView* mView;
    Wt::WSortFilterProxyModel* mProxy;
    Wt::WStandardItemModel* mModel;
};
