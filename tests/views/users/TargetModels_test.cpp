// The two models over the selected users, held against a second one that computes everything from its definition.

#include "db/ZeqExchange.h"
#include "tests/db/DbTest.h"
#include "views/users/model/TxFavorites.h"
#include "views/users/model/TxPermissions.h"

#include <algorithm>
#include <random>
#include <set>

namespace {

using Indexes = std::vector<unsigned>;

/// One user as the naive model knows it.
struct User {
    bool access = false;
    Indexes list; // as stored: any order, duplicates, Transmitters that are gone
    Indexes favorites;

    bool has(unsigned tx) const { return std::ranges::count(list, tx) > 0; }
};

struct World {
    std::set<unsigned> txs;
    std::map<unsigned, User> users;
};

std::string listText(const Indexes& list) {
    std::string text;
    for (const unsigned tx : list)
        text += (text.empty() ? "" : ",") + (R"({"txIndex":)" + std::to_string(tx) + "}");
    return "[" + text + "]";
}

class TargetModels : public DbTest {
protected:
    void putTx(unsigned tx) {
        store.put("tx", tx, R"("eid":"E)" + std::to_string(tx) + R"(","name":"N)" + std::to_string(tx) + '"');
        world.txs.insert(tx);
    }
    void putUser(unsigned index, const User& user) {
        store.put("user", index,
                  std::string(R"("allTargetAccess":")") + (user.access ? "enabled" : "disabled") +
                      R"(","target":)" + listText(user.list) + R"(,"favorite":)" + listText(user.favorites));
        world.users[index] = user;
    }
    /// 0 to 40 Transmitters of 44 that lists may name, six users.
    void shuffleWorld() {
        for (const unsigned tx : world.txs) Db::db.deleteRecordByIndex("tx", tx, errors);
        world = {};
        const unsigned most = upTo(40);
        for (unsigned i = 0; i < most; ++i) putTx(1 + upTo(43));
        const unsigned density = 1 + upTo(9);
        Indexes sameFavorites = randomList(upTo(35));
        for (unsigned index = 1; index <= 6; ++index) {
            User user;
            user.access = upTo(2) == 0;
            for (unsigned tx = 1; tx <= 44; ++tx)
                for (unsigned again = upTo(9) < density ? 1 + upTo(1) : 0; again > 0; --again)
                    user.list.push_back(tx);
            if (upTo(5) == 0) user.list.clear();
            std::ranges::shuffle(user.list, random);
            user.favorites = upTo(2) == 0 ? randomList(upTo(5)) : sameFavorites;
            putUser(index, user);
        }
    }
    Indexes randomSelection() {
        Indexes users = {1, 2, 3, 4, 5, 6};
        std::ranges::shuffle(users, random);
        users.resize(1 + upTo(5));
        return users;
    }
    Indexes randomList(unsigned count) {
        Indexes list;
        for (unsigned i = 0; i < count; ++i) list.push_back(1 + upTo(43));
        return list;
    }
    unsigned upTo(unsigned most) { return static_cast<unsigned>(random() % (most + 1)); }

    World world;
    std::mt19937 random{20261123};
};

std::string textOf(const std::vector<TargetItem>& items) {
    std::string text;
    for (const TargetItem& item : items)
        text += item.eid + "/" + item.name + (item.conflict ? "! " : " ") +
                (item.eid == "E" + std::to_string(item.index) ? "" : "?");
    return text;
}

std::vector<TargetItem> itemsOf(const Indexes& indexes, bool conflict = false) {
    std::vector<TargetItem> items;
    for (const unsigned tx : indexes)
        items.push_back({tx, conflict, "E" + std::to_string(tx), "N" + std::to_string(tx)});
    return items;
}

/// The selected users of a world, edited.
struct Naive {
    std::set<unsigned> txs;
    std::vector<User> users;
    TargetAccess::EnableAll box = TargetAccess::ENABLE_ALL_MIXED;

    Naive(const World& world, const Indexes& selection) : txs(world.txs) {
        for (const unsigned index : selection) users.push_back(world.users.at(index));
        const auto access = std::ranges::count(users, true, &User::access);
        box = access == 0                                           ? TargetAccess::ENABLE_ALL_NO
              : access == static_cast<std::ptrdiff_t>(users.size()) ? TargetAccess::ENABLE_ALL_YES
                                                                    : TargetAccess::ENABLE_ALL_MIXED;
    }
    bool onSomeList(unsigned tx) const {
        return std::ranges::any_of(users, [&](const User& user) { return user.has(tx); });
    }
    bool reachedByAll(unsigned tx) const {
        return std::ranges::all_of(users, [&](const User& user) { return user.access || user.has(tx); });
    }
    bool inConflict(unsigned tx) const { return onSomeList(tx) && !reachedByAll(tx); }
    template <class Is>
    std::string those(Is is, bool conflict) const {
        Indexes found;
        for (const unsigned tx : txs)
            if (is(tx)) found.push_back(tx);
        return textOf(itemsOf(found, conflict));
    }
    std::string conflicts() const {
        return those([&](unsigned tx) { return inConflict(tx); }, true);
    }
    std::string available() const {
        if (box == TargetAccess::ENABLE_ALL_YES) return "";
        return those([&](unsigned tx) { return !onSomeList(tx) && !reachedByAll(tx); }, false) + conflicts();
    }
    std::string allowed() const {
        if (box == TargetAccess::ENABLE_ALL_YES) return "";
        return those([&](unsigned tx) { return reachedByAll(tx); }, false) + conflicts();
    }
    void give(unsigned tx) {
        for (User& user : users)
            if (txs.contains(tx)) user.list.push_back(tx);
    }
    void take(unsigned tx) {
        for (User& user : users)
            if (txs.contains(tx)) std::erase(user.list, tx);
    }
    void tick(bool on) {
        box = on ? TargetAccess::ENABLE_ALL_YES : TargetAccess::ENABLE_ALL_NO;
        if (on) return;
        for (User& user : users) user = {};
    }
    Indexes stored(const User& user) const {
        Indexes list;
        for (const unsigned tx : txs)
            if (user.has(tx)) list.push_back(tx);
        return list;
    }

    // Favourites.
    bool differ() const {
        return std::ranges::any_of(users,
                                   [&](const User& user) { return user.favorites != users[0].favorites; });
    }
    std::string favorites() const {
        if (differ()) return "";
        Indexes shown;
        for (const unsigned tx : users[0].favorites)
            if (txs.contains(tx)) shown.push_back(tx);
        return textOf(itemsOf(shown));
    }
    std::string offered() const {
        const auto chosen = [&](unsigned tx) {
            return !differ() && std::ranges::count(users[0].favorites, tx) > 0;
        };
        if (box == TargetAccess::ENABLE_ALL_YES)
            return those([&](unsigned tx) { return !chosen(tx); }, false);
        return those([&](unsigned tx) { return reachedByAll(tx) && !chosen(tx); }, false) +
               those([&](unsigned tx) { return inConflict(tx) && !chosen(tx); }, true);
    }
    void move(unsigned tx, int step) {
        for (User& user : users) {
            Indexes& list = user.favorites;
            for (int i = 0; i < static_cast<int>(list.size()); ++i) {
                if (list[static_cast<std::size_t>(i)] != tx) continue;
                const int to = i + step;
                if (to >= 0 && to < static_cast<int>(list.size()))
                    std::swap(list[static_cast<std::size_t>(i)], list[static_cast<std::size_t>(to)]);
                break;
            }
        }
    }
};

TEST_F(TargetModels, PermissionsAreWhatTheirDefinitionSaysThroughEveryEdit) {
    TxPermissions model;
    for (int round = 0; round < 500; ++round) {
        if (round % 15 == 0) shuffleWorld();
        const Indexes selection = randomSelection();
        ASSERT_EQ(model.populate(selection), 0u);
        Naive naive(world, selection);
        const auto check = [&](const std::string& what) {
            const std::string place = "round " + std::to_string(round) + ", " + what;
            ASSERT_EQ(textOf(model.getAvailableTargetItems()), naive.available()) << place;
            ASSERT_EQ(textOf(model.getAllowedTargetItems()), naive.allowed()) << place;
            ASSERT_EQ(model.getEnableAll(), naive.box) << place;
            for (std::size_t i = 0; i < selection.size(); ++i)
                ASSERT_EQ(model.getTargetsForUser(selection[i])->targets, naive.stored(naive.users[i]))
                    << place;
        };
        ASSERT_NO_FATAL_FAILURE(check("read"));
        EXPECT_EQ(textOf(model.getAllTargetItems()), naive.those([](unsigned) { return true; }, false));
        for (int edit = 0; edit < 6; ++edit) {
            const unsigned what = upTo(9);
            const Indexes some = randomList(upTo(6));
            if (what < 4) {
                model.addToAllowed(some);
                for (const unsigned tx : some) naive.give(tx);
            } else if (what < 6) {
                model.removeFromAllowed(some);
                for (const unsigned tx : some) naive.take(tx);
            } else if (what == 6) {
                model.allowAll();
                for (const unsigned tx : world.txs) naive.give(tx);
            } else if (what == 7) {
                model.disallowAll();
                for (const unsigned tx : world.txs) naive.take(tx);
            } else if (what == 8) {
                model.setEnableAll(TxPermissions::ENABLE_ALL_YES);
                naive.tick(true);
            } else {
                model.setEnableAll(TxPermissions::ENABLE_ALL_NO);
                model.disallowAll();
                naive.tick(false);
            }
            ASSERT_NO_FATAL_FAILURE(check("edit " + std::to_string(what)));
        }
        if (round % 5 != 0) continue;
        ASSERT_EQ(model.writeToDatabase(errors), 0u);
        for (std::size_t i = 0; i < selection.size(); ++i) {
            User& before = world.users[selection[i]];
            if (naive.box != TxPermissions::ENABLE_ALL_MIXED)
                before.access = naive.box == TxPermissions::ENABLE_ALL_YES;
            if (naive.box != TxPermissions::ENABLE_ALL_YES) before.list = naive.stored(naive.users[i]);
            ASSERT_EQ(store.field("user", selection[i], "target"), listText(before.list)) << round;
            ASSERT_EQ(store.field("user", selection[i], "allTargetAccess"),
                      before.access ? R"("enabled")" : R"("disabled")")
                << round;
        }
    }
}

TEST_F(TargetModels, FavoritesAreWhatTheirDefinitionSaysThroughEveryEdit) {
    TxFavorites model;
    int differing = 0;
    int full = 0;
    for (int round = 0; round < 500; ++round) {
        if (round % 15 == 0) shuffleWorld();
        const Indexes selection = randomSelection();
        ASSERT_EQ(model.populate(selection), 0u);
        Naive naive(world, selection);
        const auto check = [&](const std::string& what) {
            const std::string place = "round " + std::to_string(round) + ", " + what;
            ASSERT_EQ(textOf(model.getFavTargetItems()), naive.favorites()) << place;
            ASSERT_EQ(textOf(model.getAvailFavTargetItems()), naive.offered()) << place;
            ASSERT_EQ(model.favoritesDiffer(), naive.differ()) << place;
            for (std::size_t i = 0; i < selection.size(); ++i)
                ASSERT_EQ(model.getTargetsForUser(selection[i])->favorites, naive.users[i].favorites)
                    << place;
        };
        ASSERT_NO_FATAL_FAILURE(check("read"));
        differing += naive.differ();
        // Only what the lists can hand over: what is offered, and what all have.
        for (int edit = 0; edit < 6; ++edit) {
            const unsigned what = upTo(5);
            Indexes some = indexesOf(what < 3 ? model.getAvailFavTargetItems() : model.getFavTargetItems());
            std::ranges::shuffle(some, random);
            some.resize(std::min<std::size_t>(some.size(), upTo(20)));
            if (what < 3) {
                const bool differed = naive.differ();
                model.addToFavorites(some);
                for (User& user : naive.users) {
                    if (differed) user.favorites.clear();
                    for (const unsigned tx : some)
                        if (user.favorites.size() < 32) user.favorites.push_back(tx);
                }
                full += naive.users[0].favorites.size() == 32;
            } else if (what == 3) {
                some.resize(std::min<std::size_t>(some.size(), 3));
                model.removeFromFavorites(some);
                for (User& user : naive.users)
                    for (const unsigned tx : some)
                        if (const auto at = std::ranges::find(user.favorites, tx); at != user.favorites.end())
                            user.favorites.erase(at);
            } else if (!some.empty()) {
                what == 4 ? model.moveFavoriteUp(some[0]) : model.moveFavoriteDown(some[0]);
                naive.move(some[0], what == 4 ? -1 : 1);
            }
            ASSERT_NO_FATAL_FAILURE(check("edit " + std::to_string(what)));
        }
        if (round % 5 != 0) continue;
        ASSERT_EQ(model.writeToDatabase(errors), 0u);
        for (std::size_t i = 0; i < selection.size(); ++i) {
            world.users[selection[i]].favorites = naive.users[i].favorites;
            ASSERT_EQ(store.field("user", selection[i], "favorite"), listText(naive.users[i].favorites))
                << round;
        }
    }
    EXPECT_GT(differing, 75);
    EXPECT_GT(full, 10);
}

TEST_F(TargetModels, NobodyAndFailures) {
    putTx(1);
    putUser(1, {false, {1}, {1}});
    putUser(2, {true, {}, {}});
    TxPermissions permissions;
    TxFavorites favorites;
    EXPECT_EQ(permissions.getEnableAll(), TxPermissions::ENABLE_ALL_MIXED);
    ASSERT_EQ(permissions.populate({1}), 0u);
    ASSERT_EQ(favorites.populate({1}), 0u);

    // Nobody: lists are empty, the box stays; nothing is asked.
    store.forget();
    EXPECT_EQ(permissions.populate({}), 0u);
    EXPECT_EQ(favorites.populate({}), 0u);
    EXPECT_TRUE(store.requests().empty());
    EXPECT_EQ(permissions.getEnableAll(), TxPermissions::ENABLE_ALL_NO);
    EXPECT_EQ(textOf(permissions.getAllowedTargetItems()) + textOf(permissions.getAvailableTargetItems()),
              "");
    EXPECT_EQ(textOf(favorites.getFavTargetItems()) + textOf(favorites.getAvailFavTargetItems()), "");

    // A list that could not be read is not overwritten.
    for (const char* resource : {"user", "tx"}) {
        store.refuse("get", resource, resource == std::string("user") ? 2 : 0);
        if (resource == std::string("tx")) store.hangUp();
        EXPECT_EQ(permissions.populate({1, 2}), 1u) << resource;
        EXPECT_EQ(favorites.populate({1, 2}), 1u) << resource;
        permissions.disallowAll();
        favorites.addToFavorites({1});
        EXPECT_EQ(permissions.writeToDatabase(errors) + favorites.writeToDatabase(errors), 0u);
        EXPECT_EQ(store.field("user", 1, "target"), listText({1}));
        store.accept("get", resource, 2);
    }
}

TEST_F(TargetModels, AFailureEndsTheWriting) {
    putTx(1);
    for (unsigned user = 1; user <= 3; ++user) putUser(user, {});
    TxPermissions permissions;
    TxFavorites favorites;
    ASSERT_EQ(permissions.populate({1, 2, 3}), 0u);
    ASSERT_EQ(favorites.populate({1, 2, 3}), 0u);
    permissions.allowAll();
    favorites.addToFavorites({1});
    store.refuse("set", "user", 2);
    EXPECT_EQ(permissions.writeToDatabase(errors), 1u);
    EXPECT_EQ(errors.size(), 1u);
    EXPECT_EQ(favorites.writeToDatabase(errors), 1u);
    EXPECT_EQ(errors.size(), 2u);
    for (const char* key : {"target", "favorite"}) {
        EXPECT_EQ(store.field("user", 1, key), listText({1}));
        EXPECT_EQ(store.field("user", 2, key), "[]");
        EXPECT_EQ(store.field("user", 3, key), "[]");
    }
}

TEST_F(TargetModels, TwoHundredUsersCostTwoRequests) {
    for (unsigned tx = 1; tx <= 300; ++tx) putTx(tx);
    Indexes selection;
    for (unsigned user = 1; user <= 200; ++user) {
        putUser(user, {false, {1, user, 300}, {1}});
        selection.push_back(user);
    }
    TxPermissions permissions;
    TxFavorites favorites;
    const unsigned long before = zeqExchangeCount();
    ASSERT_EQ(permissions.populate(selection), 0u);
    EXPECT_EQ(zeqExchangeCount() - before, 2u);
    ASSERT_EQ(favorites.populate(selection), 0u);
    EXPECT_EQ(zeqExchangeCount() - before, 4u);
    permissions.addToAllowed({2, 3});
    favorites.addToFavorites({300});
    EXPECT_EQ(zeqExchangeCount() - before, 4u);
    EXPECT_EQ(permissions.getTargetsForUser(200)->targets, Indexes({1, 2, 3, 200, 300}));
}

} // namespace
