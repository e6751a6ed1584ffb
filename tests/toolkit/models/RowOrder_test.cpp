#include "models/RowOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

using Wt::Impl::RowOrder;

namespace {

void compare(const RowOrder& order, const std::vector<int>& wanted, int sources) {
    ASSERT_EQ(order.all(), wanted);
    ASSERT_EQ(order.size(), static_cast<int>(wanted.size()));
    ASSERT_EQ(order.sources(), sources);
    std::vector<int> place(sources, -1);
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        ASSERT_EQ(order.at(static_cast<int>(i)), wanted[i]);
        place[wanted[i]] = static_cast<int>(i);
    }
    for (int source = 0; source < sources; ++source) ASSERT_EQ(order.position(source), place[source]);
}

} // namespace

// Long enough that blocks fill, split and empty; a plain vector says what is right.
TEST(RowOrder, agreesWithAVectorOverRandomChanges) {
    std::mt19937 random(7);
    const auto below = [&](int n) { return static_cast<int>(random() % std::max(n, 1)); };
    RowOrder order;
    std::vector<int> wanted;
    int sources = 0;
    for (int step = 0; step < 400; ++step) {
        switch (below(5)) {
        case 0: { // rows of the source come, all shown in one place
            const int first = below(sources + 1), count = 1 + below(step % 50 == 0 ? 2000 : 40);
            for (int& row : wanted)
                if (row >= first) row += count;
            std::vector<int> fresh(count);
            std::iota(fresh.begin(), fresh.end(), first);
            std::shuffle(fresh.begin(), fresh.end(), random);
            const int place = below(static_cast<int>(wanted.size()) + 1);
            wanted.insert(wanted.begin() + place, fresh.begin(), fresh.end());
            order.sourceInserted(first, count);
            order.insert(place, fresh);
            sources += count;
            break;
        }
        case 1: { // rows of the source go, shown or not
            if (!sources) break;
            const int first = below(sources), count = 1 + below(std::min(sources - first, 60));
            std::erase_if(wanted, [&](int row) { return row >= first && row < first + count; });
            for (int& row : wanted)
                if (row >= first + count) row -= count;
            order.sourceRemoved(first, count);
            sources -= count;
            break;
        }
        case 2: { // a stretch is not shown any more
            if (wanted.empty()) break;
            const int place = below(static_cast<int>(wanted.size()));
            const int count = 1 + below(std::min<int>(static_cast<int>(wanted.size()) - place, 900));
            if (step % 4) break;
            wanted.erase(wanted.begin() + place, wanted.begin() + place + count);
            order.erase(place, count);
            break;
        }
        default: { // one row moves
            if (wanted.empty()) break;
            const int from = below(static_cast<int>(wanted.size()));
            const int row = wanted[from];
            wanted.erase(wanted.begin() + from);
            order.erase(from);
            const int to = below(static_cast<int>(wanted.size()) + 1);
            wanted.insert(wanted.begin() + to, row);
            order.insert(to, {row});
        }
        }
        if (step % 10 == 0) compare(order, wanted, sources);
        if (HasFatalFailure()) FAIL() << "step " << step;
    }
    compare(order, wanted, sources);
}
