#include "frame/ShownTables.h"
#include "tests/widgets/WidgetTest.h"
#include "widgets/WSettingsTable.h"
#include "widgets/WTextZeq.h"

namespace {

constexpr SettingsTableSpec kSpec{.resource = "rx"};
constexpr SettingsRow kRows[] = {
    {.label = "[RSnnn]Name", .make = makeSettingsField<WTextZeq>, .key = "name"},
    {.label = "[RSnnn]EID", .make = makeSettingsField<WTextZeq>, .key = "eid"},
};

class Tables : public ShownTables {
public:
    explicit Tables(Wt::WContainerWidget* parent)
        : Tables(new WSettingsTable(kSpec, kRows), new WSettingsTable(kSpec, kRows), parent) {}
    std::string text() const { return mLast->widget<WTextZeq>("name")->text().toUTF8(); }

private:
    Tables(WSettingsTable* first, WSettingsTable* last, Wt::WContainerWidget* parent)
        : ShownTables({first, last}, parent), mLast(last) {}
    WSettingsTable* mLast;
};

class ShownTablesTest : public WidgetTest {};

// Each refresh asks for the change counters, and once for the record that is not held.
TEST_F(ShownTablesTest, HoldWhatTheyShowUntilItChangesOrIsAnother) {
    store.put("rx", 8, R"("name":"Desk 8")");
    const struct {
        const char* name; // stored before the refresh
        unsigned counter;
        unsigned record;
        const char* shown;
        std::size_t requests;
    } rows[] = {
        {"Desk 7", 1, 7, "Desk 7", 2}, {"Later", 1, 7, "Desk 7", 1}, {"Later", 2, 7, "Later", 2},
        {"Last", 2, 7, "Later", 1},    {"Last", 2, 8, "Desk 8", 2},  {"Last", 2, 7, "Last", 2},
    };
    Tables tables(page());
    for (const auto& row : rows) {
        store.put("rx", 7, R"("name":")" + std::string(row.name) + "\"");
        store.put("changeStatus", 7, R"("lastChange":)" + std::to_string(row.counter));
        store.forget();
        tables.readFromDatabase({row.record});
        EXPECT_EQ(tables.text(), row.shown);
        EXPECT_EQ(store.requests().size(), row.requests) << row.shown;
    }
}

} // namespace
