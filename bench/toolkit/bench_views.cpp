// Lists: what a refresh costs. Prints "name value unit target" lines; medians of CPU time, so that a busy
// machine disturbs little.
#include "page/SortedList.h"
#include "test/TestSession.h"

#include <Wt/Test/WTestEnvironment.h>
#include <Wt/WApplication.h>
#include <Wt/WContainerWidget.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <string>
#include <vector>

namespace {

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

void measureList(int rows, int runs, const std::string& name, const char* target) {
    Wt::Test::WTestEnvironment environment;
    Wt::WApplication application(environment);
    auto& session = Wt::Impl::TestSession::current();
    const std::size_t before = mallinfo2().uordblks;
    SortedList list(application.root());
    list.refill(rows);
    tell((name + "_held").c_str(),
         static_cast<double>(mallinfo2().uordblks - before) / rows / SortedList::kColumns, "B/cell", "-");
    session.takeOperations();
    std::size_t bytes = 0;
    const double ms = medianMs(runs, [&] {
        list.refill(rows);
        bytes += session.takeOperations().size();
    });
    tell((name + "_same").c_str(), ms, "ms", target);
    tell((name + "_same_sent").c_str(), static_cast<double>(bytes), "B", "0");

    const Wt::WModelIndex inView = list.proxy().mapToSource(list.proxy().index(3, 4));
    list.model().setData(inView.row(), 4, boost::any(std::string("Offline")));
    tell((name + "_cell_sent").c_str(), static_cast<double>(session.takeOperations().size()), "B", "<200");
    tell((name + "_filter").c_str(),
         medianMs(runs,
                  [&] {
                      list.proxy().setFilterRegExp("^.*desk 1.*");
                      list.proxy().setFilterRegExp("^.*");
                      session.takeOperations();
                  }),
         "ms", "-");
}

} // namespace

int main() {
    measureList(200, 200, "list_200", "<1");
    measureList(10'000, 15, "list_10000", "<150");
}
