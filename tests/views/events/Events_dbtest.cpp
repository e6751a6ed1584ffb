// The Events page: two lists of which one has a selection, the details of the one event, and the four actions.

#include "db/Db.h"
#include "db/ZeqExchange.h"
#include "frame/ActionColumn.h"
#include "frame/WNavAccordionStdCell.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "platform/client/ZeqReq.h"
#include "tests/views/PageTest.h"
#include "views/events/EventHistoryResource.h"
#include "views/events/WEventView.h"
#include "views/events/WEventViewDetails.h"
#include "views/events/WEventViewLists.h"

#include <Wt/WCheckBox>

#if __has_include("test/TestSession.h")
#include "test/TestSession.h"
#endif

#include <sstream>

namespace {

class EventsPage : public PageTest {
protected:
    EventsPage() : view(mainTab<WEventView>()) {
        std::vector<std::string> errors;
        Db::db.ackAllAlerts(errors);
        Db::db.clearAllHistoricalAlerts(errors);
        for (const char* message : {"first", "second", "third"}) raise(message);
        view->readFromDatabase(false);
    }

    void acknowledgeAll() { clickAction(EventAction::AcknowledgeAll); }

    void select(EventList& list, const std::vector<std::string>& messages) {
        Wt::WModelIndexSet rows;
        for (int row = 0; row < list.proxy()->rowCount(); ++row) {
            const Wt::WModelIndex index = list.proxy()->index(row, 0);
            if (std::ranges::count(messages, list.table()->textAt(index, EventList::Message)) > 0)
                rows.insert(index);
        }
        EXPECT_EQ(rows.size(), messages.size());
        list.table()->setSelectedIndexes(rows);
        list.table()->selectionChanged().emit();
    }
    static std::string messages(const EventList& list) {
        std::vector<std::string> all;
        for (int row = 0; row < list.proxy()->rowCount(); ++row)
            all.push_back(list.table()->textAt(list.proxy()->index(row, 0), EventList::Message));
        std::ranges::sort(all);
        std::string text;
        for (const std::string& one : all) text += one + " ";
        return text;
    }
    /// The message in the details.
    std::string shownMessage() const {
        auto* cell = view->details()->message().elementAt(4, 1);
        return dynamic_cast<Wt::WText*>(cell->children().front())->text().toUTF8();
    }
    Wt::WPushButton* button(EventAction action) const {
        return view->actions()->cell(static_cast<std::size_t>(action))->actionButton();
    }
    void clickAction(EventAction action) { click(button(action)); }
    bool enabled(EventAction action) const { return !button(action)->isDisabled(); }
    void tick() { view->refreshTimerTimeout(); }

    WEventView* view;
    EventList& unacked = *view->unAckedList();
    EventList& history = *view->histList();
};

TEST_F(EventsPage, ASelectionInOneListEndsTheOtherAndTheDetailsFollow) {
    clickAction(EventAction::Acknowledge); // nothing is selected
    EXPECT_EQ(messages(unacked), "first second third ");
    EXPECT_FALSE(enabled(EventAction::Acknowledge));
    select(unacked, {"first"});
    EXPECT_TRUE(enabled(EventAction::Acknowledge));
    EXPECT_EQ(shownMessage(), "first");
    clickAction(EventAction::Acknowledge);
    EXPECT_EQ(messages(unacked), "second third ");
    EXPECT_EQ(messages(history), "first ");
    EXPECT_EQ(shownMessage(), "") << "it is selected no more";
    EXPECT_FALSE(enabled(EventAction::Acknowledge));

    select(unacked, {"second"});
    select(history, {"first"});
    EXPECT_EQ(unacked.numSelected(), 0);
    EXPECT_EQ(shownMessage(), "first");
    EXPECT_TRUE(enabled(EventAction::Acknowledge)) << "stays as it was";
    clickAction(EventAction::Acknowledge);
    EXPECT_EQ(messages(unacked), "second third ");
    select(unacked, {"second", "third"});
    EXPECT_EQ(history.numSelected(), 0);
    EXPECT_EQ(shownMessage(), "") << "of several";
    EXPECT_TRUE(enabled(EventAction::Acknowledge));
    clickAction(EventAction::Acknowledge);
    EXPECT_EQ(messages(history), "first second third ");
    EXPECT_FALSE(enabled(EventAction::AcknowledgeAll));
    EXPECT_EQ(button(EventAction::AcknowledgeAll)->toolTip().toUTF8(), "There is nothing to acknowledge");
}

TEST_F(EventsPage, ARefreshKeepsSelectionAndDetails) {
    select(unacked, {"third"});
    clickAction(EventAction::Acknowledge);
    select(history, {"third"});
    raise("fourth");
    tick();
    EXPECT_EQ(messages(unacked), "first fourth second ");
    EXPECT_EQ(shownMessage(), "third") << "the other list's empty selection leaves it";
    select(unacked, {"fourth"});
    raise("fifth");
    tick();
    EXPECT_EQ(shownMessage(), "fourth");
    EXPECT_EQ(unacked.numSelected(), 1);
    EXPECT_TRUE(enabled(EventAction::Acknowledge));
    std::vector<std::string> errors;
    Db::db.ackAllAlerts(errors); // by another administrator
    tick();
    EXPECT_EQ(shownMessage(), "");
    EXPECT_FALSE(enabled(EventAction::Acknowledge));
    EXPECT_FALSE(enabled(EventAction::AcknowledgeAll));
}

TEST_F(EventsPage, RowsSayWhenWhatAndWhoNewestFirst) {
    poke("swx", 1, "eid", "00A701-0100FF");
    raise("grave", "error");
    raise("calm", "info");
    view->readFromDatabase(false);
    const auto cell = [this](const char* message, int column) {
        select(unacked, {message});
        return unacked.table()->textAt(*unacked.table()->selectedIndexes().begin(), column);
    };
    EXPECT_EQ(cell("first", EventList::Type), "Warning");
    EXPECT_EQ(cell("grave", EventList::Type), "Error");
    EXPECT_EQ(cell("calm", EventList::Type), "Information");
    EXPECT_EQ(cell("calm", EventList::Originator), "00A701-0100FF");
    EXPECT_NE(cell("calm", EventList::Date).find(':'), std::string::npos);
    EXPECT_EQ(unacked.table()->sortOrder(), Wt::DescendingOrder);
    EXPECT_EQ(unacked.table()->sortColumn(), EventList::Date);
    EXPECT_EQ(unacked.table()->toolTip().toUTF8().substr(0, 11), "Local time,");
}

TEST_F(EventsPage, ClearingAsksAndLeavesWhatIsNotAcknowledged) {
    acknowledgeAll();
    raise("new");
    view->readFromDatabase(false);
    answerWith("Cancel");
    clickAction(EventAction::ClearHistory);
    EXPECT_EQ(messages(history), "first second third ");
    EXPECT_NE(shown.at(0).find("Are you sure you want to clear the event history?\n\n3 events"),
              std::string::npos)
        << shown.at(0);
    answer([](Wt::WDialog& dialog) {
        widgetsIn<Wt::WCheckBox>(&dialog).at(0)->setChecked(true);
        click(buttonIn(&dialog, "Clear"));
    });
    clickAction(EventAction::ClearHistory);
    EXPECT_EQ(messages(history), "");
    EXPECT_EQ(messages(unacked), "new ");
    acknowledgeAll();
    clickAction(EventAction::ClearHistory); // unasked
    EXPECT_EQ(messages(history), "");
    EXPECT_EQ(shown.size(), 2u);
}

TEST_F(EventsPage, SaveIsALinkToTheFileAsTheServiceHasIt) {
    acknowledgeAll();
    EXPECT_TRUE(enabled(EventAction::SaveHistory));
    auto* resource = dynamic_cast<EventHistoryResource*>(button(EventAction::SaveHistory)->link().resource());
    ASSERT_NE(resource, nullptr);
    EXPECT_EQ(resource->suggestedFileName().toUTF8(), "event-history.csv");
    std::ostringstream file;
    resource->write(file);
    const std::string text = file.str();
    EXPECT_EQ(std::ranges::count(text, '\n'), 3);
    EXPECT_LT(text.find("first"), text.find("third")) << "the service's order";
}

TEST_F(EventsPage, AnIdleTickAsksForTheNewsAndSendsNothing) {
    for (int i = 0; i < 200; ++i) raise("event " + std::to_string(i));
    tick();
    const auto cost = [this] {
        const unsigned long before = zeqExchangeCount();
        tick();
        return zeqExchangeCount() - before;
    };
#if __has_include("test/TestSession.h")
    Wt::Impl::TestSession::current().takeOperations();
#endif
    EXPECT_EQ(cost(), 1u);
    view->readFromDatabase(false); // everything taken out and put back as it was
#if __has_include("test/TestSession.h")
    EXPECT_EQ(Wt::Impl::TestSession::current().takeOperations(), "");
#endif
    raise("one more");
    EXPECT_EQ(cost(), 3u);
    EXPECT_EQ(unacked.rowCount(), 204);
}

TEST_F(EventsPage, AServiceThatIsAwayIsTold) {
    zeqd.stop();
    answerWith("Close");
    acknowledgeAll();
    EXPECT_EQ(shown.size(), 1u);
    EXPECT_EQ(messages(unacked), "first second third ") << "what was read stays";
    zeqd.start();
    raise("fourth");
    tick();
    EXPECT_EQ(unacked.rowCount(), 4);
}

} // namespace
