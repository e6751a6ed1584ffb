#include "ModelMirror.h"

#include <Wt/WStandardItemModel.h>

#include <gtest/gtest.h>

#include <set>

using namespace Wt;

namespace {

boost::any text(const char* value) {
    return boost::any(std::string(value));
}

} // namespace

TEST(StandardItemModel, keepsValuesOfEveryRoleThroughShapeChanges) {
    WStandardItemModel model(0, 2);
    const ModelMirror mirror(model);
    EXPECT_TRUE(model.insertRows(0, 3));
    model.setData(0, 0, boost::any(7u));
    model.setData(1, 1, text("x"));
    model.setData(1, 1, text("tip"), ToolTipRole); // makes an item of the cell: its value must survive
    model.setData(2, 0, text("only a tip"), ToolTipRole);
    EXPECT_TRUE(model.insertRows(1, 2));
    EXPECT_TRUE(model.insertColumns(1, 1));
    EXPECT_TRUE(model.removeRows(1, 1));

    const boost::any index = model.data(0, 0, EditRole);
    ASSERT_TRUE(boost::any_cast<unsigned>(&index));
    EXPECT_EQ(*boost::any_cast<unsigned>(&index), 7u);
    EXPECT_EQ(asString(model.data(2, 2)), WString("x"));
    EXPECT_EQ(asString(model.data(2, 2, ToolTipRole)), WString("tip"));
    EXPECT_TRUE(model.data(3, 0).empty());
    EXPECT_EQ(asString(model.data(3, 0, ToolTipRole)), WString("only a tip"));
    EXPECT_EQ(model.item(2, 2)->row(), 2);
    EXPECT_EQ(model.item(2, 2)->column(), 2);
    EXPECT_EQ(mirror.complaint, "");
}

// A cell stores what it holds in several ways, by type and length.
TEST(StandardItemModel, valuesComeOutAsTheyWentIn) {
    struct Named {
        int number;
    };
    const std::string longest(100'000, 'y');
    const boost::any values[] = {boost::any(-1),
                                 boost::any(0xffffffffu),
                                 boost::any(1.5),
                                 boost::any(true),
                                 text(""),
                                 boost::any(std::string("14 characters.")),
                                 boost::any(std::string("15 characters..")),
                                 boost::any(std::string("a\0b", 3)),
                                 boost::any(longest),
                                 boost::any(WString("x")),
                                 boost::any(Named{3})};
    const int count = static_cast<int>(std::size(values));
    WStandardItemModel model(count, 1);
    for (int row = 0; row < count; ++row) {
        model.setData(row, 0, values[(row + 1) % count]); // every kind follows every other
        model.setData(row, 0, values[row]);
    }
    EXPECT_TRUE(model.insertRows(0, 5));
    EXPECT_TRUE(model.insertColumns(0, 1));
    EXPECT_TRUE(model.removeRows(0, 5));
    const ModelMirror mirror(model);
    for (int row = 0; row < count; ++row) {
        const boost::any held = model.data(row, 1, EditRole);
        EXPECT_EQ(held.type(), values[row].type()) << row;
        EXPECT_EQ(asString(held), asString(values[row])) << row;
        if (row == count - 1) continue; // of a foreign type every value is another
        EXPECT_TRUE(model.setData(row, 1, values[row])) << row;
    }
    EXPECT_EQ(mirror.changes, 0);
    const boost::any bytes = model.data(7, 1);
    EXPECT_EQ(boost::any_cast<std::string>(bytes).size(), 3u);
    const boost::any own = model.data(count - 1, 1);
    EXPECT_EQ(boost::any_cast<Named>(own).number, 3);
    model.setData(8, 1, boost::any());
    EXPECT_TRUE(model.data(8, 1).empty());
    EXPECT_EQ(model.item(8, 1), nullptr);
}

TEST(StandardItemModel, itemsAreDeletedWithTheirCells) {
    struct Counted : WStandardItem {
        explicit Counted(int& alive) : mAlive(alive) { ++mAlive; }
        ~Counted() override { --mAlive; }
        int& mAlive;
    };
    int alive = 0;
    WStandardItemModel model(3, 2);
    for (int row = 0; row < 3; ++row) model.setItem(row, 1, new Counted(alive));
    model.setItem(0, 1, new Counted(alive)); // in the place of another
    EXPECT_EQ(alive, 3);
    model.removeRows(0, 1);
    EXPECT_EQ(alive, 2);
    delete model.takeItem(0, 1);
    EXPECT_EQ(alive, 1);
    model.clear();
    EXPECT_EQ(alive, 0);
}

TEST(StandardItemModel, refusesWhatIsOutOfRange) {
    WStandardItemModel model(2, 2), other(2, 2);
    const ModelMirror mirror(model);
    EXPECT_FALSE(model.insertRows(3, 1));
    EXPECT_FALSE(model.insertRows(-1, 1));
    EXPECT_FALSE(model.insertRows(0, 0));
    EXPECT_FALSE(model.removeRows(1, 2));
    EXPECT_FALSE(model.removeRows(0, -1));
    EXPECT_FALSE(model.removeColumns(2, 1));
    EXPECT_FALSE(model.setData(2, 0, text("x")));
    EXPECT_FALSE(model.setData(other.index(0, 0), text("x")));
    EXPECT_TRUE(model.data(0, 9).empty());
    EXPECT_TRUE(model.data(other.index(0, 0)).empty());
    EXPECT_FALSE(model.setHeaderData(2, text("x")));
    EXPECT_EQ(mirror.insertions + mirror.removals + mirror.changes, 0);
}

TEST(StandardItemModel, sameValueIsNoChange) {
    WStandardItemModel model(1, 1);
    const ModelMirror mirror(model);
    for (int i = 0; i < 3; ++i) model.setData(0, 0, text("x"));
    EXPECT_EQ(mirror.changes, 1);
    model.setData(0, 0, boost::any(WString("x"))); // another type is another value
    EXPECT_EQ(mirror.changes, 2);
}

TEST(StandardItemModel, headers) {
    WStandardItemModel model(1, 2);
    EXPECT_TRUE(model.setHeaderData(1, text("Name")));
    EXPECT_TRUE(model.setHeaderData(1, Horizontal, text("tip"), ToolTipRole));
    EXPECT_EQ(asString(model.headerData(1)), WString("Name"));
    EXPECT_EQ(asString(model.headerData(1, Horizontal, ToolTipRole)), WString("tip"));
    EXPECT_TRUE(model.headerData(0).empty());
    model.clear();
    EXPECT_TRUE(model.headerData(1).empty());
    EXPECT_EQ(model.columnCount() + model.rowCount(), 0);
}

TEST(StandardItemModel, treesAndOrderOfIndexes) {
    WStandardItemModel model(0, 1);
    auto* first = new WStandardItem("b");
    auto* second = new WStandardItem("a");
    model.appendRow(first);
    model.appendRow(second);
    first->appendRow(new WStandardItem("b1"));
    first->appendRow(new WStandardItem("b2"));
    first->child(1)->appendRow(new WStandardItem("b2x"));
    const WModelIndexSet all{second->index(), first->child(1)->child(0)->index(), first->child(1)->index(),
                             first->index(), first->child(0)->index()};
    std::string order;
    for (const WModelIndex& index : all) order += asString(index.data()).toUTF8() + " ";
    EXPECT_EQ(order, "b b1 b2 b2x a ");
    EXPECT_TRUE(WModelIndex::isAncestor(first->child(1)->child(0)->index(), first->index()));
    EXPECT_EQ(first->child(1)->child(0)->index().depth(), 3);

    WModelIndex raw = first->child(1)->index();
    raw.encodeAsRawIndex();
    model.sort(0);
    EXPECT_EQ(asString(model.data(0, 0)), WString("a"));
    EXPECT_EQ(raw.decodeFromRawIndex(), first->child(1)->index());

    const std::vector<WStandardItem*> taken = model.takeRow(1);
    ASSERT_EQ(taken, std::vector<WStandardItem*>{first});
    EXPECT_FALSE(first->index().isValid());
    delete first;
    EXPECT_EQ(model.rowCount(), 1);
}

TEST(StandardItemModel, match) {
    WStandardItemModel model(0, 1);
    for (const char* name : {"rx1", "Rx10", "tx1", "rx2"}) model.appendRow(new WStandardItem(name));
    const struct {
        const char* value;
        int flags, hits, from;
        std::size_t found;
    } rows[] = {
        {"rx", MatchStartsWith, -1, 0, 3},
        {"rx", MatchStartsWith | MatchCaseSensitive, -1, 0, 2},
        {"rx", MatchStartsWith, 1, 0, 1},
        {"rx", MatchStartsWith, -1, 1, 2},
        {"rx", MatchStartsWith | MatchWrap, -1, 3, 3},
        {"1", MatchEndsWith, -1, 0, 2},
        {"RX1", MatchStringExactly, -1, 0, 1},
        {"r.1.*", MatchRegExp, -1, 0, 2},
        {"r?1*", MatchWildCard, -1, 0, 2},
        {"(", MatchRegExp, -1, 0, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(model
                      .match(model.index(row.from, 0), DisplayRole, boost::any(std::string(row.value)),
                             row.hits, WFlags<MatchFlag>(row.flags))
                      .size(),
                  row.found)
            << row.value << " " << row.flags;
}

TEST(StandardItemModel, textOfValues) {
    const struct {
        boost::any value;
        const char* format;
        const char* text;
    } rows[] = {
        {boost::any(), "", ""},
        {boost::any(7u), "", "7"},
        {boost::any(-3), "", "-3"},
        {boost::any(2.5), "", "2.5"},
        {boost::any(true), "", "true"},
        {boost::any("c"), "", "c"},
        {boost::any(2.5), "%.2f", "2.50"},
        {boost::any(7), "%03d V", "007 V"},
        {boost::any(7u), "%.1f", "7.0"},
        {boost::any(WString("ä")), "", "ä"},
        {boost::any(std::vector<int>()), "", ""},
        {boost::any(std::string("x")), "%d", "x"},
    };
    for (const auto& row : rows) EXPECT_EQ(asString(row.value, row.format).toUTF8(), row.text) << row.text;
}
