#pragma once

#include <Wt/WContainerWidget>
#include <Wt/WSortFilterProxyModel>
#include <Wt/WStandardItemModel>
#include <Wt/WTableView>
#include <Wt/WText>

/// A table of ten thousand rows, and buttons for what programs do with it. The names of its rows are "row 0"
/// and so on; #chosen tells how many are selected, and which is the first and the last of them.
class TableSection : public Wt::WContainerWidget {
public:
    explicit TableSection(Wt::WContainerWidget* parent);

private:
    void fill();
    void tellSelection();

    Wt::WStandardItemModel mModel;
    Wt::WSortFilterProxyModel mSorted;
    Wt::WTableView* mView;
    Wt::WText* mChosen;
};

/// A list that a timer clears and fills again, as the refresh of the product does, with a field beside it.
/// Every tenth second the values differ only when #vary was pressed.
class RefreshSection : public Wt::WContainerWidget {
public:
    explicit RefreshSection(Wt::WContainerWidget* parent);

private:
    void refill();

    static constexpr int kRows = 200;
    Wt::WStandardItemModel mModel;
    Wt::WTableView* mView;
    Wt::WText* mTimes; // how often it was filled; told when asked
    int mRefills = 0, mRows = kRows;
    bool mVaried = false;
};
