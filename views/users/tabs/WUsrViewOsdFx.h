#pragma once

#include "widgets/TargetItem.h"
#include "widgets/WOsdHotkeyFunc.h"
#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"
#include "widgets/WTarget.h"

#include <array>

/// What F1 to F12 do in the on-screen display. A key whose action differs among the users shows the blank item, and
/// a save leaves it to each of them as it is.
class WUsrViewOsdFxTable : public WSettingsTable {
public:
    static constexpr std::size_t kKeys = 12;

    explicit WUsrViewOsdFxTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const Indexes& indexes, bool force) override;
    /// Every key of every user; those with a blank action by their name alone. Goes on behind a refusal.
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    /// An action that takes a target has its choices at once.
    void contentChangedHandler() override;

    bool isAllValid() override { return true; }
    bool isAnyValid() override { return true; }
    /// Keys are counted from 0, which is F1.
    WOsdHotkeyFunc* action(std::size_t key) const { return widgetAt<WOsdHotkeyFunc>(2 * key); }
    WTarget* target(std::size_t key) const { return widgetAt<WTarget>(2 * key + 1); }

private:
    /// What a key does for all users that were read. 0 and "": they differ, or nothing is known.
    struct Slot {
        unsigned action = 0; // Info_OsdCommonAction
        std::string eid;
    };
    using Slots = std::array<Slot, kKeys>;

    static Slots slotsOf(const json_t* shortCuts);
    static Slots readSlots(const Indexes& users);
    void showTargets();

    Slots mSlots;                     // read last
    std::vector<TargetItem> mTargets; // what all users may reach
};

class WUsrViewOsdFx : public WSettingsTab {
public:
    explicit WUsrViewOsdFx(Wt::WContainerWidget* parent = nullptr);
};
