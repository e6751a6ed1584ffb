// Boxes whose choices are records, or whose meaning is made of two fields.

#include "tests/widgets/WidgetTest.h"

#include "widgets/WComboBoxZeqDynamic.h"
#include "widgets/WManagementMode.h"
#include "widgets/WSwxCombinedMode.h"
#include "widgets/WTarget.h"
#include "widgets/WTargetAny.h"
#include "widgets/WTxIcon.h"
#include "widgets/WTxIconSelDialog.h"
#include "widgets/WUsr.h"

#include <Wt/WString>

namespace {

std::string tr(const char* key) {
    return Wt::WString::tr(key).toUTF8();
}

class Pickers : public WidgetTest {
protected:
    Pickers() {
        store.put("tx", 1, R"("eid":"TXEID0-000001","name":"CAD 1")");
        store.put("tx", 2, R"("eid":"TXEID0-000002","name":"")");
        store.put("tx", 3, R"("eid":"TXEID0-000003")");
        store.put("user", 1, R"("name":"op10")");
        store.put("user", 2, R"("name":"op9")");
        store.put("user", 3, R"("name":"anna")");
        store.put("rx", 1, R"("autoConnectTxEid":"TXEID0-000002","autoLoginUserIndex":1,"list":"op9")");
        store.put("rx", 2, R"("autoConnectTxEid":"TXEID0-000002","autoLoginUserIndex":1,"list":"op9")");
        store.put("rx", 3, R"("autoConnectTxEid":"","autoLoginUserIndex":0,"list":"gone")");
        store.put("rx", 4, R"("autoConnectTxEid":"TXEID0-000009","autoLoginUserIndex":9,"list":"op10")");
        store.refuse("get", "rx", 5);
    }

    static std::vector<std::string> itemsOf(const Wt::WComboBox& box) {
        std::vector<std::string> items;
        for (int i = 0; i < box.count(); ++i) items.push_back(box.itemText(i).toUTF8());
        return items;
    }

    /// What a box over records shows for each set of records; the blank item is the text "".
    template <class Box>
    void expectShown(Box& box, const char* first) {
        const struct {
            Db::Indexes indexes;
            unsigned result;
            const char* shown;
        } rows[] = {{{1}, 0, first}, {{1, 2}, 0, first}, {{1, 3}, 0, ""}, {{3}, 0, ""},
                    {{4}, 0, ""},    {{}, 0, ""},        {{5}, 1, ""}};
        for (const auto& r : rows) {
            EXPECT_EQ(box.readFromDatabase(r.indexes, errors, false), r.result);
            EXPECT_EQ(box.currentText().toUTF8(), r.shown) << testing::PrintToString(r.indexes);
            EXPECT_FALSE(box.hasChangedContent());
        }
    }
};

TEST_F(Pickers, TargetsByEidAndName) {
    WTargetAny box(true, page());
    expectShown(box, "TXEID0-000002");
    EXPECT_EQ(itemsOf(box), (std::vector<std::string>{"TXEID0-000001 (CAD 1)", "TXEID0-000002", ""}))
        << "a Transmitter without a name key is left out";
    choose(box, 0);
    EXPECT_EQ(paramsOf(box), R"({"autoConnectTxEid":"TXEID0-000001"})");
    EXPECT_EQ(box.writeToDatabase({3, 4}, errors), 0U);
    EXPECT_EQ(store.field("rx", 4, "autoConnectTxEid"), "\"TXEID0-000001\"");
    choose(box, 2);
    EXPECT_EQ(paramsOf(box), "{}") << "the blank item";
    box.writeToDatabase({1}, errors);
    EXPECT_EQ(store.field("rx", 1, "autoConnectTxEid"), "\"TXEID0-000002\"");
}

TEST_F(Pickers, UsersInNaturalOrder) {
    WUsr box("rx", "autoLoginUserIndex", true, page());
    expectShown(box, "op10");
    EXPECT_EQ(itemsOf(box), (std::vector<std::string>{"anna", "op9", "op10", ""}));
    const ZeqPtr held(json_loads(R"({"rows":[{"index":7,"autoLoginUserIndex":3}]})", 0, nullptr));
    box.getZeqParam(held.get(), {7}, false);
    EXPECT_EQ(box.currentText().toUTF8(), "anna");
    choose(box, 1);
    EXPECT_EQ(paramsOf(box), R"({"autoLoginUserIndex":2})");
    EXPECT_EQ(box.writeToDatabase({3, 4}, errors), 0U);
    EXPECT_EQ(store.field("rx", 3, "autoLoginUserIndex"), "2");
    choose(box, 3);
    EXPECT_EQ(paramsOf(box), "{}");
}

TEST_F(Pickers, ManyUsersWithNamesThatHaveNoOrder) {
    // "a2" < "a10" < "a1b" < "a2": a sort must survive that.
    for (unsigned i = 1; i <= 200; ++i) {
        const char* const forms[] = {"a2", "a10", "a1b"};
        store.put("user", i, "\"name\":\"" + std::string(forms[i % 3]) + "\"");
    }
    WUsr box("rx", "autoLoginUserIndex", true, page());
    EXPECT_EQ(box.updateListOfChoices(), 0U);
    EXPECT_EQ(box.count(), 201);
}

TEST_F(Pickers, TextsOfAnotherResource) {
    WComboBoxZeqDynamic box("rx", "list", "user", "name", true, page());
    const struct {
        Db::Indexes indexes;
        unsigned result;
        const char* shown;
    } rows[] = {{{1, 2}, 0, "op9"}, {{4}, 0, "op10"}, {{1, 4}, 0, ""},
                {{3}, 0, ""},       {{5}, 1, ""},     {{}, 0, ""}};
    for (const auto& r : rows) {
        EXPECT_EQ(box.readFromDatabase(r.indexes, errors, false), r.result);
        EXPECT_EQ(box.currentText().toUTF8(), r.shown) << testing::PrintToString(r.indexes);
    }
    choose(box, 2);
    EXPECT_EQ(paramsOf(box), R"({"list":"anna"})");
    store.refuse("get", "user", 0, R"({"errno":1106})");
    EXPECT_EQ(box.updateListOfChoices(), 1U);
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(log.messages(1).size(), 2U) << "of the refused read, and of this";
    EXPECT_EQ(paramsOf(box), "{}");
    EXPECT_EQ(box.readFromDatabase({1}, errors, true), 0U) << "an empty box survives a read";
}

TEST_F(Pickers, TargetsOfAShortCut) {
    WTarget box("user", "txEID", true, page());
    box.setCurrentChoiceByEid("TXEID0-000001");
    EXPECT_EQ(box.count(), 1) << "the blank item alone";
    box.populateChoices({{1, false, "TXEID0-000001", "CAD 1"},
                         {2, true, "TXEID0-000002", "hidden"},
                         {3, false, "TXEID0-000003", ""}});
    EXPECT_EQ(itemsOf(box), (std::vector<std::string>{"TXEID0-000001 (CAD 1)", "TXEID0-000003"}));
    box.setCurrentChoiceByEid("TXEID0-000002");
    box.setCurrentChoiceByEid("TXEID0-000009");
    EXPECT_EQ(box.count(), 3);
    EXPECT_EQ(box.currentIndex(), 2);
    EXPECT_EQ(paramsOf(box), "{}");
    box.setCurrentChoiceByEid("TXEID0-000003");
    EXPECT_EQ(box.count(), 2);
    EXPECT_EQ(paramsOf(box), R"({"txEID":"TXEID0-000003"})") << "also without a change";
    box.setCurrentIndex(0);
    EXPECT_EQ(paramsOf(box), R"({"txEID":"TXEID0-000001"})");
}

TEST_F(Pickers, ManagementCanOnlyBeLeft) {
    const struct {
        const char* stored;
        int item;
        const char* managed;
    } rows[] = {
        {"enrolling", 1, "[RSnnn]Managed (enrolling)"},
        {"managed", 1, "[RSnnn]Managed (exchanging certificates)"},
        {"odd", 0, "[RSnnn]Managed (exchanging certificates)"},
        {"unenrolling", 1, "[RSnnn]Managed (unenrolling)"},
        {"non_managed", 0, "[RSnnn]Managed"},
        {"verified", 1, "[RSnnn]Managed (fully enrolled)"},
    };
    WManagementMode box("systemGlobals", "managedSetting", page());
    for (const auto& r : rows) {
        store.put("systemGlobals", 0, "\"managedSetting\":\"" + std::string(r.stored) + "\"");
        EXPECT_EQ(box.readFromDatabase({}, errors, false), 0U);
        EXPECT_EQ(box.currentIndex(), r.item) << r.stored;
        EXPECT_EQ(box.itemText(1).toUTF8(), tr(r.managed)) << r.stored;
    }
    choose(box, 0);
    EXPECT_EQ(paramsOf(box), R"({"managedSetting":"unenrolling"})");
    EXPECT_FALSE(box.hasChangedContent());
    choose(box, 1);
    store.forget();
    EXPECT_EQ(box.writeToDatabase({}, errors), 0U);
    EXPECT_TRUE(store.requests().empty());
    choose(box, 0);
    EXPECT_EQ(box.writeToDatabase({}, errors), 0U);
    EXPECT_EQ(store.field("systemGlobals", 0, "managedSetting"), "\"unenrolling\"");
}

TEST_F(Pickers, ModeAndManagementInOneBox) {
    const struct {
        const char *managed, *mode;
        int item, items;
        const char* third;
    } rows[] = {
        {"non_managed", "master", 0, 2, ""},
        {"verified", "master", 2, 3, "managedmode.setting.mode.managed.master"},
        {"enrolling", "master", 2, 3,
         "managedmode.setting.mode.managed.master"}, // the third item stays as it is
        {"verified", "slave", 1, 2, ""},
        {"enrolling", "slave", 2, 3, nullptr}, // empty
        {"non_managed", "master", 0, 2, ""},
    };
    WSwxCombinedMode box(page());
    for (const auto& r : rows) {
        SCOPED_TRACE(std::string(r.managed) + " " + r.mode);
        store.put("systemGlobals", 0, "\"managedSetting\":\"" + std::string(r.managed) + "\"");
        store.put("swx", 1, "\"mode\":\"" + std::string(r.mode) + "\"");
        EXPECT_EQ(box.readFromDatabase({}, errors, false), 0U);
        EXPECT_EQ(box.currentIndex(), r.item);
        EXPECT_EQ(box.count(), r.items);
        EXPECT_EQ(r.items == 3 ? box.itemText(2).toUTF8() : "", r.third && *r.third ? tr(r.third) : "");
    }
    store.put("swx", 1, R"("mode":"slave")");
    choose(box, 1);
    store.forget();
    EXPECT_EQ(box.writeToDatabase({}, errors), 0U);
    EXPECT_TRUE(store.requests().empty());
    choose(box, 0);
    store.refuse("set", "systemGlobals", 0);
    EXPECT_EQ(box.writeToDatabase({}, errors), 1U);
    EXPECT_EQ(store.field("swx", 1, "mode"), "\"slave\"") << "ended at the first failure";
    EXPECT_FALSE(box.hasChangedContent());
}

TEST_F(Pickers, IconsByNumber) {
    store.put("tx", 5, R"("iconIndex":7)");
    store.put("tx", 6, R"("iconIndex":33)");
    WTxIcon icon("tx", "iconIndex", true, page());
    EXPECT_EQ(icon.count(), 33);
    icon.readFromDatabase({5}, errors, false);
    EXPECT_EQ(icon.currentIndex(), 7);
    icon.readFromDatabase({5, 6}, errors, false);
    EXPECT_EQ(icon.currentIndex(), 0);
    icon.readFromDatabase({6}, errors, false);
    EXPECT_EQ(icon.currentIndex(), 0) << "beyond the last one";
    icon.setContentChanged();
    EXPECT_EQ(paramsOf(icon), R"({"iconIndex":0})");
    icon.clearContentChanged();

    int changes = 0;
    icon.contentChanged().connect([&] { ++changes; });
    session.environment().dialogExecuted().connect(
        [](Wt::WDialog* dialog) { dynamic_cast<WTxIconSelDialog*>(dialog)->iconClickedHandler(12); });
    icon.clicked().emit(Wt::WMouseEvent());
    EXPECT_EQ(icon.currentIndex(), 12);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(paramsOf(icon), R"({"iconIndex":12})");
    EXPECT_EQ(icon.writeToDatabase({5, 6}, errors), 0U);
    EXPECT_EQ(store.field("tx", 6, "iconIndex"), "12");
}

} // namespace
