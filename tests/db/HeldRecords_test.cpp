#include "tests/db/DbTest.h"

#include "db/HeldRecords.h"

namespace {

class Held : public DbTest {
protected:
    Held() {
        store.put("rx", 7, R"("name":"Desk 4","usbMode":"all_devices","n":3)");
        store.put("rx", 8, R"("name":"Desk 5","n":4)");
        store.put("user", 2, R"("name":"anna","role":"user","keyboardLayout":"de")");
        store.put("userSession", 4, R"("rxIndex":9,"userIndex":1)");
        store.put("userSession", 5, R"("rxIndex":7,"userIndex":2)");
        for (const unsigned kind : {1U, 6U, 7U, 8U, 13U, 17U})
            store.put("changeStatus", kind, R"("lastChange":1)");
    }

    std::string text(const char* resource, unsigned index, const char* key) {
        std::string value = "unread";
        const unsigned result = Db::db.readString(resource, index, key, value, errors);
        return result == 0 ? value : "failed";
    }
    std::size_t asked() {
        const std::size_t count = store.requests().size();
        store.forget();
        return count;
    }
};

TEST_F(Held, ARecordIsAskedForOnceWhileHeld) {
    {
        HeldRecords held;
        const HeldRecords::Use use(held);
        EXPECT_EQ(text("rx", 7, "name") + text("rx", 7, "usbMode"), "Desk 4all_devices");
        unsigned number = 0;
        EXPECT_EQ(Db::db.readUInt32("rx", 7, "n", number, errors), 0U);
        EXPECT_EQ(number, 3U);
        EXPECT_EQ(text("rx", 7, "absent"), "unread") << "no failure, as without";
        EXPECT_EQ(asked(), 1U);
        EXPECT_EQ(text("rx", 8, "name"), "Desk 5");
        {
            HeldRecords inner;
            const HeldRecords::Use nested(inner);
            EXPECT_EQ(text("rx", 7, "name"), "Desk 4");
        }
        EXPECT_EQ(text("rx", 7, "name"), "Desk 4");
        EXPECT_EQ(asked(), 1U) << "the outer one counts, and goes on";
    }
    store.put("rx", 7, R"("name":"Renamed")");
    EXPECT_EQ(text("rx", 7, "name"), "Renamed");
    EXPECT_EQ(asked(), 1U);
}

TEST_F(Held, LargeRecordsAreHeldInPart) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    EXPECT_EQ(text("user", 2, "name"), "anna");
    EXPECT_EQ(store.requests().at(0).find("keyboardLayout"), std::string::npos);
    asked();
    EXPECT_EQ(text("user", 2, "role") + text("user", 2, "role"), "useruser");
    EXPECT_EQ(asked(), 0U);
    EXPECT_EQ(text("user", 2, "keyboardLayout") + text("user", 2, "keyboardLayout"), "dede");
    EXPECT_EQ(asked(), 2U) << "a key that is not held is read by itself";
    ASSERT_NE(held.fetch("user", {2}, {"keyboardLayout"}), nullptr);
    EXPECT_EQ(text("user", 2, "keyboardLayout") + text("user", 2, "keyboardLayout"), "dede");
    EXPECT_EQ(asked(), 1U);
}

TEST_F(Held, SeveralRecordsWithOneRequest) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    EXPECT_NE(held.fetch("rx", {8, 7}, {"name"}), nullptr);
    EXPECT_EQ(text("rx", 7, "name") + text("rx", 8, "name"), "Desk 4Desk 5");
    EXPECT_EQ(asked(), 1U);
    EXPECT_EQ(held.fetch("rx", {7, 99}, {"name"}), nullptr);
    EXPECT_TRUE(held.failed());
    EXPECT_EQ(text("rx", 7, "name"), "Desk 4") << "by itself then";
}

TEST_F(Held, ASearchFindsTheRecordAndHoldsIt) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    for (int time = 0; time < 2; ++time) {
        unsigned login = 0;
        EXPECT_EQ(Db::db.findIndexOfUInt32Key("userSession", "rxIndex", 7, login, errors), 0U);
        EXPECT_EQ(login, 5U);
        unsigned user = 0;
        EXPECT_EQ(Db::db.readUInt32("userSession", login, "userIndex", user, errors), 0U);
        EXPECT_EQ(user, 2U);
        EXPECT_EQ(Db::db.findIndexOfUInt32Key("userSession", "rxIndex", 8, login, errors), 1U);
        EXPECT_EQ(Db::db.findIndexOfUInt32Key("connection", "rxIndex", 7, login, errors), 1U);
        EXPECT_EQ(asked(), time == 0 ? 3U : 0U);
    }
    EXPECT_TRUE(errors.empty());
    EXPECT_FALSE(held.failed()) << "not found is no failure";
}

TEST_F(Held, AFailureIsToldOnceAndNotAskedAgain) {
    store.refuse("get", "rx", 7);
    HeldRecords held;
    const HeldRecords::Use use(held);
    EXPECT_EQ(text("rx", 7, "name") + text("rx", 7, "usbMode"), "failedfailed");
    EXPECT_EQ(errors.size(), 1U);
    EXPECT_EQ(asked(), 1U);
    EXPECT_TRUE(held.failed());
    store.hangUp();
    EXPECT_EQ(text("rx", 8, "name"), "failed");
    asked();
    EXPECT_EQ(text("swx", 1, "name"), "failed");
    EXPECT_EQ(held.fetch("rx", {8}, {"name"}), nullptr);
    EXPECT_EQ(asked(), 0U) << "a silent service is not waited for twice";
    HeldRecords searched;
    unsigned index = 0;
    EXPECT_EQ(searched.find("connection", "rxIndex", 7, index), 1U);
    EXPECT_TRUE(searched.failed()) << "no answer is not the same as not found";
}

TEST_F(Held, OneValueIsNotWorthAWholeTable) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    EXPECT_EQ(HeldRecords::covering("rx", 0, "name"), nullptr);
    EXPECT_EQ(HeldRecords::covering("rx", 7, "name"), &held);
    EXPECT_EQ(HeldRecords::covering("systemGlobals", 0, "managedSetting"), &held);
}

TEST_F(Held, PlacesHoldUntilADeviceChanges) {
    HeldRecords held;
    const HeldRecords::Place place{1, 2};
    held.dropChanged();
    unsigned change = 1;
    for (const unsigned kind : {1U, 7U, 8U}) {
        held.ports.places["E"] = place;
        held.dropChanged();
        EXPECT_EQ(held.ports.places.count("E"), 1U);
        store.put("changeStatus", kind, R"("lastChange":)" + std::to_string(++change));
        held.dropChanged();
        EXPECT_EQ(held.ports.places.count("E"), 0U) << kind;
    }
    held.ports.places["E"] = place;
    store.put("changeStatus", 6, R"("lastChange":9)");
    held.dropChanged();
    EXPECT_EQ(held.ports.places.count("E"), 1U) << "users are plugged in nowhere";
    held.clear();
    EXPECT_TRUE(held.ports.places.empty());
}

TEST_F(Held, WhatFailedIsAskedForAgainAtTheNextRefresh) {
    HeldRecords held;
    held.dropChanged();
    {
        const HeldRecords::Use use(held);
        store.refuse("get", "rx", 7);
        EXPECT_EQ(text("rx", 7, "name"), "failed");
        EXPECT_NE(held.fetch("rx", {8}, {"name"}), nullptr);
        EXPECT_TRUE(held.failed());
    }
    store.accept("get", "rx", 7);
    store.put("rx", 8, R"("name":"Renamed")"); // fetched for one refresh only, whatever is counted
    held.dropChanged();
    EXPECT_FALSE(held.failed());
    const HeldRecords::Use use(held);
    EXPECT_EQ(text("rx", 7, "name") + text("rx", 8, "name"), "Desk 4Renamed");
}

TEST_F(Held, FromRefreshToRefreshOnlyWhatChangedIsAskedFor) {
    HeldRecords held;
    const auto refresh = [&] {
        held.dropChanged();
        const HeldRecords::Use use(held);
        unsigned login = 0;
        Db::db.findIndexOfUInt32Key("userSession", "rxIndex", 7, login, errors);
        return text("rx", 7, "name") + " " + text("user", 2, "name") + " " +
               text("systemGlobals", 0, "managedSetting");
    };
    EXPECT_EQ(refresh(), "Desk 4 anna non_managed");
    EXPECT_EQ(asked(), 5U);
    EXPECT_EQ(refresh(), "Desk 4 anna non_managed");
    EXPECT_EQ(asked(), 2U) << "the counters, and what no counter tells of";
    store.put("rx", 7, R"("name":"Renamed")");
    store.put("user", 2, R"("name":"berta")");
    store.put("changeStatus", 7, R"("lastChange":2)");
    EXPECT_EQ(refresh(), "Renamed anna non_managed") << "no change of users was counted";
    EXPECT_EQ(asked(), 3U);
    store.refuse("get", "changeStatus", 0);
    EXPECT_EQ(refresh(), "Renamed berta non_managed") << "without counters all is asked for";
}

} // namespace
