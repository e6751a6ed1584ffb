#include "ListSections.h"

#include <Wt/WLineEdit>
#include <Wt/WPushButton>
#include <Wt/WText>
#include <Wt/WTimer>

namespace {

constexpr int kManyRows = 10'000;

Wt::WPushButton* button(Wt::WContainerWidget* parent, const char* id, std::function<void()> act) {
    auto* made = new Wt::WPushButton(id, parent);
    made->setId(id);
    made->clicked().connect(std::bind(std::move(act)));
    return made;
}

void setUp(Wt::WTableView& view, const char* id, Wt::WAbstractItemModel& model) {
    view.setId(id);
    view.setModel(&model);
    view.setSelectionMode(Wt::ExtendedSelection);
    view.setAttributeValue("aria-label", id);
    view.setColumnHidden(0, true);
    view.setColumnWidth(2, Wt::WLength(90));
    view.resize(Wt::WLength::Auto, Wt::WLength(200));
}

void heads(Wt::WStandardItemModel& model) {
    const char* names[] = {"number", "name", "state", "speed"};
    for (int column = 0; column < 4; ++column)
        model.setHeaderData(column, Wt::Horizontal, boost::any(Wt::WString(names[column])));
}

void setRow(Wt::WStandardItemModel& model, int row, int number) {
    model.setData(row, 0, boost::any(number));
    model.setData(row, 1, boost::any(Wt::WString("row " + std::to_string(number))));
    model.setData(row, 2, boost::any(Wt::WString(number % 3 ? "online" : "offline")));
    model.setData(row, 3, boost::any(number * 7919 % 1000));
}

} // namespace

TableSection::TableSection(Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mModel(kManyRows, 4) {
    heads(mModel);
    fill();
    mSorted.setSourceModel(&mModel);
    mSorted.setDynamicSortFilter(true);
    mView = new Wt::WTableView(this);
    setUp(*mView, "table", mSorted);
    mChosen = new Wt::WText("0", this);
    mChosen->setId("chosen");
    mView->selectionChanged().connect(this, &TableSection::tellSelection);
    button(this, "scroll",
           [this] { mView->scrollTo(mSorted.index(7000, 1), Wt::WTableView::PositionAtTop); });
    button(this, "hide", [this] { mView->setColumnHidden(2, !mView->isColumnHidden(2)); });
    button(this, "insert", [this] {
        mModel.insertRow(0);
        setRow(mModel, 0, -1);
    });
    button(this, "refill", [this] {
        mModel.removeRows(0, mModel.rowCount());
        mModel.insertRows(0, kManyRows);
        fill();
    });
}

void TableSection::fill() {
    for (int row = 0; row < kManyRows; ++row) setRow(mModel, row, row);
}

void TableSection::tellSelection() {
    const Wt::WModelIndexSet chosen = mView->selectedIndexes();
    Wt::WString text = Wt::WString("{1}").arg(static_cast<int>(chosen.size()));
    if (!chosen.empty())
        text += Wt::WString(": {1} to {2}")
                    .arg(Wt::asString(mSorted.data(chosen.begin()->row(), 1)))
                    .arg(Wt::asString(mSorted.data(chosen.rbegin()->row(), 1)));
    mChosen->setText(text);
}

RefreshSection::RefreshSection(Wt::WContainerWidget* parent) : Wt::WContainerWidget(parent), mModel(0, 4) {
    heads(mModel);
    mView = new Wt::WTableView(this);
    setUp(*mView, "list", mModel);
    auto* field = new Wt::WLineEdit("begin", this);
    field->setId("half");
    auto* told = new Wt::WText("nothing", this);
    told->setId("told");
    mTimes = new Wt::WText("0", this);
    mTimes->setId("times");
    refill();
    auto* timer = new Wt::WTimer(this);
    timer->setInterval(50);
    timer->timeout().connect(this, &RefreshSection::refill);
    button(this, "tick", [timer] { timer->start(); });
    button(this, "still", [=, this] {
        timer->stop();
        mTimes->setText(Wt::WString("{1}").arg(mRefills));
    });
    button(this, "vary", [this] { mVaried = !mVaried; });
    button(this, "shorter", [this] { mRows = 150; });
    button(this, "tell", [=] { told->setText(field->text()); });
}

void RefreshSection::refill() {
    ++mRefills;
    const Wt::WModelIndexSet chosen = mView->selectedIndexes();
    mModel.removeRows(0, mModel.rowCount());
    mModel.insertRows(0, mRows);
    for (int row = 0; row < mRows; ++row) setRow(mModel, row, row);
    if (mVaried) mModel.setData(2, 2, boost::any(Wt::WString("changed")));
    Wt::WModelIndexSet again;
    for (const Wt::WModelIndex& index : chosen)
        if (index.row() < mRows) again.insert(mModel.index(index.row(), index.column()));
    mView->setSelectedIndexes(again);
}
