// Lists: what a refresh costs. Prints "name value unit target" lines; medians of CPU time, so that a busy
// machine disturbs little.
#include "test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WContainerWidget.h>
#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>
#include <Wt/WTableView.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <string>
#include <vector>

namespace {

constexpr int kColumns = 6;

double cpuMs() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double medianMs(int runs, const std::function<void()>& work) {
    std::vector<double> times;
    for (int run = 0; run < runs; ++run) {
        const double start = cpuMs();
        work();
        times.push_back(cpuMs() - start);
    }
    std::nth_element(times.begin(), times.begin() + runs / 2, times.end());
    return times[runs / 2];
}

void tell(const char* name, double value, const char* unit, const char* target) {
    std::printf("%s %.3f %s %s\n", name, value, unit, target);
}

/// Compares texts by the value of the cell, as the product's lists do.
class TextOrder : public Wt::WSortFilterProxyModel {
protected:
    bool lessThan(const Wt::WModelIndex& left, const Wt::WModelIndex& right) const override {
        const boost::any a = left.data(Wt::EditRole), b = right.data(Wt::EditRole);
        const auto* one = boost::any_cast<std::string>(&a);
        const auto* other = boost::any_cast<std::string>(&b);
        return one && other && *one < *other;
    }
};

struct List {
    Wt::WStandardItemModel model{0, kColumns};
    TextOrder proxy;
    Wt::WTableView* view;

    explicit List(Wt::WContainerWidget* parent) : view(new Wt::WTableView(parent)) {
        proxy.setSourceModel(&model);
        proxy.setDynamicSortFilter(true);
        proxy.setFilterKeyColumn(2);
        proxy.setFilterRegExp("^.*");
        view->setModel(&proxy);
        view->setColumnHidden(0, true);
        view->sortByColumn(1, Wt::AscendingOrder);
    }

    /// As every page does it: away with all, then row by row and cell by cell.
    void refill(int rows) {
        model.removeRows(0, model.rowCount());
        model.insertRows(0, rows);
        for (int row = 0; row < rows; ++row) {
            model.setData(row, 0, boost::any(static_cast<unsigned>(row + 1)));
            model.setData(row, 1, boost::any("rx " + std::to_string(row * 7919 % rows)));
            model.setData(row, 2, boost::any("Receiver of desk " + std::to_string(row)));
            model.setData(row, 3, boost::any(std::string("Receiver (G2)")));
            model.setData(row, 4, boost::any(std::string("Connected, private")));
            model.setData(row, 5, boost::any(std::string("4.12.0")));
        }
    }
};

void measureList(int rows, int runs, const std::string& name, const char* target) {
    Wt::Test::WTestEnvironment environment;
    Wt::WApplication application(environment);
    auto& session = Wt::Impl::TestSession::current();
    const std::size_t before = mallinfo2().uordblks;
    List list(application.root());
    list.refill(rows);
    tell((name + "_held").c_str(), static_cast<double>(mallinfo2().uordblks - before) / rows / kColumns,
         "B/cell", "-");
    session.takeOperations();
    std::size_t bytes = 0;
    const double ms = medianMs(runs, [&] {
        list.refill(rows);
        bytes += session.takeOperations().size();
    });
    tell((name + "_same").c_str(), ms, "ms", target);
    tell((name + "_same_sent").c_str(), static_cast<double>(bytes), "B", "0");

    list.model.setData(rows / 2, 4, boost::any(std::string("Offline")));
    const Wt::WModelIndex changed = list.proxy.mapFromSource(list.model.index(rows / 2, 4));
    list.view->scrollTo(changed);
    session.takeOperations();
    list.model.setData(rows / 2, 4, boost::any(std::string("Rebooting")));
    tell((name + "_cell_sent").c_str(), static_cast<double>(session.takeOperations().size()), "B", "<200");
    tell((name + "_filter").c_str(),
         medianMs(runs,
                  [&] {
                      list.proxy.setFilterRegExp("^.*desk 1.*");
                      list.proxy.setFilterRegExp("^.*");
                      session.takeOperations();
                  }),
         "ms", "-");
}

} // namespace

int main() {
    measureList(200, 200, "list_200", "<1");
    measureList(10'000, 15, "list_10000", "<150");
}
