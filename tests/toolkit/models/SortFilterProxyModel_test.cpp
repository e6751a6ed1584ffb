#include "ModelMirror.h"

#include <Wt/WSortFilterProxyModel.h>
#include <Wt/WStandardItemModel.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <stdexcept>

using namespace Wt;

namespace {

using Texts = std::vector<std::string>;

struct Proxied {
    WStandardItemModel source;
    WSortFilterProxyModel proxy;
    Proxied(int columns = 1) : source(0, columns) { proxy.setSourceModel(&source); }

    void fill(const Texts& texts, int column = 0) {
        source.insertRows(0, static_cast<int>(texts.size()));
        for (std::size_t row = 0; row < texts.size(); ++row)
            source.setData(static_cast<int>(row), column, boost::any(texts[row]));
    }
    Texts shown(int column = 0) const {
        Texts texts;
        for (int row = 0; row < proxy.rowCount(); ++row)
            texts.push_back(asString(proxy.data(row, column)).toUTF8());
        return texts;
    }
};

} // namespace

TEST(SortFilterProxyModel, filters) {
    const Texts all{"rx1", "RX2", "tx1", "", "a(b"};
    const struct {
        const char* pattern;
        bool ignoreCase;
        Texts shown;
    } rows[] = {
        {"", false, all},
        {"^.*", false, all},
        {"^.*rx.*", false, {"rx1"}},
        {"^.*rx.*", true, {"rx1", "RX2"}},
        {"rx", true, {}}, // the whole text is to match
        {"(rx|tx)1", false, {"rx1", "tx1"}},
        {"^.*(.*", false, {}}, // cannot be compiled
        {"^.*\\(.*", false, {"a(b"}},
        {"[", false, {}},
        {"(?<x", false, {}},
        {"$|rx1", false, {"rx1", ""}},
    };
    for (const auto& row : rows) {
        Proxied m;
        m.proxy.setFilterFlags(row.ignoreCase ? WFlags<RegExpFlag>(MatchCaseInsensitive)
                                              : WFlags<RegExpFlag>());
        m.fill(all);
        const ModelMirror mirror(m.proxy);
        m.proxy.setFilterRegExp(row.pattern);
        EXPECT_EQ(m.shown(), row.shown) << row.pattern;
        EXPECT_EQ(mirror.rows(), mirror.modelRows()) << row.pattern;
        EXPECT_EQ(mirror.complaint, "") << row.pattern;
        m.proxy.setFilterRegExp("");
        EXPECT_EQ(m.shown(), all) << "back from " << row.pattern;
    }
}

TEST(SortFilterProxyModel, costlyFilterShowsNothingAndEndsSoon) {
    Proxied m;
    m.fill(Texts(2000, std::string(60, 'a') + "!"));
    m.proxy.setFilterRegExp(
        "(a*)*b"); // each row alone would take for ever; 2,000 times the limit would be a minute
    EXPECT_EQ(m.proxy.rowCount(), 0);
    m.proxy.setFilterRegExp("a*!");
    EXPECT_EQ(m.proxy.rowCount(), 2000);
}

// Whatever happens to the source, the proxy shows what a filter and a stable sort of the source give, and its
// signals alone let a view follow.
TEST(SortFilterProxyModel, dynamicProxyFollowsRandomChanges) {
    for (const SortOrder order : {AscendingOrder, DescendingOrder}) {
        std::mt19937 random(order + 11);
        const auto below = [&](int n) { return static_cast<int>(random() % std::max(n, 1)); };
        Proxied m(3);
        m.proxy.setDynamicSortFilter(true);
        m.proxy.setFilterKeyColumn(2);
        m.proxy.setFilterRegExp("|[a-m].*");
        m.proxy.sort(1, order);
        const ModelMirror mirror(m.proxy);
        int serial = 0;
        for (int step = 0; step < 500; ++step) {
            const int rows = m.source.rowCount();
            switch (below(8)) {
            case 0:
                m.source.insertRows(below(rows + 1), 1 + below(5));
                break;
            case 1:
                if (rows) m.source.removeRows(below(rows), 1);
                break;
            case 2: {
                const int first = below(rows), count = 1 + below(6);
                if (step % 3 == 0) m.source.removeRows(first, std::min(count, rows - first));
                break;
            }
            case 3:
                m.source.setData(below(rows), 0, boost::any(++serial));
                break;
            case 4:
            case 5:
                m.source.setData(below(rows), 1, boost::any(std::string(1, "aabbcz"[below(6)])));
                break;
            case 6:
                m.source.setData(below(rows), 2, boost::any(std::string(1, "abnz"[below(4)])));
                break;
            default:
                if (step % 50 == 0) m.source.sort(0, DescendingOrder);
            }
            std::vector<int> wanted;
            const auto key = [&](int row) { return asString(m.source.data(row, 1)).toUTF8(); };
            for (int row = 0; row < m.source.rowCount(); ++row) {
                const std::string filtered = asString(m.source.data(row, 2)).toUTF8();
                if (filtered.empty() || filtered[0] <= 'm') wanted.push_back(row);
            }
            std::stable_sort(wanted.begin(), wanted.end(), [&](int a, int b) {
                return order == AscendingOrder ? key(a) < key(b) : key(b) < key(a);
            });
            std::vector<int> shown;
            for (int row = 0; row < m.proxy.rowCount(); ++row) {
                shown.push_back(m.proxy.mapToSource(m.proxy.index(row, 0)).row());
                ASSERT_EQ(m.proxy.mapFromSource(m.source.index(shown.back(), 1)), m.proxy.index(row, 1));
            }
            ASSERT_EQ(shown, wanted) << "step " << step;
            ASSERT_EQ(mirror.rows(), mirror.modelRows()) << "step " << step;
            ASSERT_EQ(mirror.complaint, "") << "step " << step;
        }
    }
}

namespace {

class BadOrder : public WSortFilterProxyModel {
public:
    enum Kind { Random, Throws, AlwaysTrue } kind;
    explicit BadOrder(Kind k) : kind(k) {}

protected:
    bool lessThan(const WModelIndex&, const WModelIndex&) const override {
        if (kind == Throws) throw std::runtime_error("no order");
        return kind == AlwaysTrue || std::rand() % 2;
    }
};

} // namespace

TEST(SortFilterProxyModel, badOrderLosesNoRow) {
    for (const auto kind : {BadOrder::Random, BadOrder::Throws, BadOrder::AlwaysTrue}) {
        WStandardItemModel source(0, 1);
        BadOrder proxy(kind);
        proxy.setSourceModel(&source);
        proxy.setDynamicSortFilter(true);
        proxy.sort(0);
        const ModelMirror mirror(proxy);
        source.insertRows(0, 160);
        for (int row = 0; row < 160; ++row) source.setData(row, 0, boost::any((row * 37) % 160));
        proxy.sort(0, DescendingOrder);
        std::vector<bool> seen(160);
        for (int row = 0; row < proxy.rowCount(); ++row)
            seen[proxy.mapToSource(proxy.index(row, 0)).row()] = true;
        EXPECT_EQ(std::count(seen.begin(), seen.end(), true), 160) << kind;
        EXPECT_EQ(mirror.rows(), mirror.modelRows()) << kind;
        EXPECT_EQ(mirror.complaint, "") << kind;
    }
}

namespace {

/// Counts how often it is asked, which tells the cost without a clock.
class CountingOrder : public WSortFilterProxyModel {
public:
    mutable long asked = 0;

protected:
    bool lessThan(const WModelIndex& left, const WModelIndex& right) const override {
        ++asked;
        return WSortFilterProxyModel::lessThan(left, right);
    }
};

} // namespace

TEST(SortFilterProxyModel, fillingTenThousandRowsCellByCellIsCheap) {
    constexpr int kRows = 10'000;
    for (const SortOrder order : {AscendingOrder, DescendingOrder}) {
        WStandardItemModel source(0, 3);
        CountingOrder proxy;
        proxy.setSourceModel(&source);
        proxy.setDynamicSortFilter(true);
        proxy.sort(1, order);
        source.insertRows(0, kRows);
        EXPECT_EQ(proxy.asked, 0) << "rows without a value need no comparison";
        for (int row = 0; row < kRows; ++row)
            for (int column = 0; column < 3; ++column)
                source.setData(row, column, boost::any((row * 7919) % kRows));
        EXPECT_LT(proxy.asked, kRows * 20L); // n log2 n is 133,000
        for (int row = 1; row < kRows; ++row) {
            const double before = asNumber(proxy.data(row - 1, 1)), here = asNumber(proxy.data(row, 1));
            ASSERT_TRUE(order == AscendingOrder ? before < here : before > here) << row;
        }
    }
}

TEST(SortFilterProxyModel, sortingAgainWhenDynamicIsTurnedOn) {
    Proxied m;
    m.proxy.sort(0);
    m.proxy.setFilterRegExp("[a-c]");
    m.fill({"c", "x", "a", "b"});
    m.proxy.setDynamicSortFilter(true);
    EXPECT_EQ(m.shown(), (Texts{"a", "b", "c"}));
    m.source.setData(0, 0, boost::any(std::string("z")));
    m.source.setData(1, 0, boost::any(std::string("b")));
    EXPECT_EQ(m.shown(), (Texts{"a", "b", "b"}));
}

TEST(SortFilterProxyModel, rawIndexFollowsARow) {
    Proxied m;
    m.proxy.setDynamicSortFilter(true);
    m.proxy.sort(0);
    m.fill({"b", "a", "d"});
    WModelIndex index = m.proxy.index(1, 0); // "b"
    index.encodeAsRawIndex();
    m.source.setData(0, 0, boost::any(std::string("z")));
    EXPECT_EQ(asString(index.decodeFromRawIndex().data()), WString("z"));
    m.proxy.setFilterRegExp("[a-d]");
    EXPECT_FALSE(index.decodeFromRawIndex().isValid());
    m.source.removeRows(0, 3);
    EXPECT_FALSE(index.decodeFromRawIndex().isValid());
}

TEST(SortFilterProxyModel, outlivesAndChangesItsSource) {
    WSortFilterProxyModel proxy;
    {
        WStandardItemModel gone(3, 1);
        proxy.setSourceModel(&gone);
        EXPECT_EQ(proxy.rowCount(), 3);
        proxy.setSourceModel(nullptr);
        EXPECT_EQ(proxy.rowCount(), 0);
        gone.insertRows(0, 1);
        EXPECT_EQ(proxy.rowCount(), 0);
    }
    WStandardItemModel next(2, 2);
    proxy.setSourceModel(&next);
    EXPECT_EQ(proxy.rowCount(), 2);
    EXPECT_TRUE(proxy.insertRows(1, 2));
    EXPECT_TRUE(proxy.removeRows(0, 3));
    EXPECT_EQ(next.rowCount(), 1);
    EXPECT_FALSE(proxy.removeRows(0, 2));
    EXPECT_FALSE(proxy.removeRows(-1, 1));
}
