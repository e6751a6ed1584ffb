#include "shell/ChangeTracker.h"

#include <gtest/gtest.h>

namespace {

using Section = ChangeTracker::SectionId;
using Subsection = ChangeTracker::SubsectionId;

struct Row {
    int section, first, last;
};

// Which pages lie under which main tab: the numbers are the contract with the tabs that use them.
constexpr Row kRows[] = {{0, 0, 4}, {1, 5, 15}, {2, 16, 16}, {3, 17, 17}, {4, 18, 18}};

TEST(ChangeTracker, EveryPageMarksItsOwnSectionOnly) {
    for (const Row& row : kRows) {
        for (int id = row.first; id <= row.last; ++id) {
            SCOPED_TRACE(id);
            ChangeTracker tracker;
            EXPECT_FALSE(tracker.anythingChanged());
            tracker.subsectionChanged(Subsection(id), true);
            EXPECT_EQ(ChangeTracker::subsectionIdToSectionId(Subsection(id)), Section(row.section));
            for (int section = 0; section < 5; ++section)
                EXPECT_EQ(tracker.sectionChanged(Section(section)), section == row.section) << section;
            EXPECT_TRUE(tracker.anythingChanged());
            tracker.subsectionChanged(Subsection(id), false);
            EXPECT_FALSE(tracker.anythingChanged());
        }
    }
}

TEST(ChangeTracker, SectionStaysChangedUntilItsLastPageIsClean) {
    ChangeTracker tracker;
    tracker.subsectionChanged(ChangeTracker::SUBSECTION_RX_ATTRIBS, true);
    tracker.subsectionChanged(ChangeTracker::SUBSECTION_TX_SETTINGS, true);
    tracker.subsectionChanged(ChangeTracker::SUBSECTION_RX_ATTRIBS, false);
    EXPECT_TRUE(tracker.sectionChanged(ChangeTracker::SECTION_DEVICES));
    tracker.subsectionChanged(ChangeTracker::SUBSECTION_TX_SETTINGS, false);
    EXPECT_FALSE(tracker.sectionChanged(ChangeTracker::SECTION_DEVICES));
}

TEST(ChangeTracker, SectionIsSetAndClearedAsAWhole) {
    ChangeTracker tracker;
    tracker.subsectionChanged(ChangeTracker::SUBSECTION_EVENTS, true);
    tracker.sectionChanged(ChangeTracker::SECTION_DEVICES, true);
    EXPECT_TRUE(tracker.subsectionChanged(ChangeTracker::SUBSECTION_RESERVED));
    EXPECT_FALSE(tracker.subsectionChanged(ChangeTracker::SUBSECTION_USR_TARGETS));
    EXPECT_FALSE(tracker.subsectionChanged(ChangeTracker::SUBSECTION_MON_ATTRIBS));
    tracker.sectionChanged(ChangeTracker::SECTION_DEVICES, false);
    EXPECT_TRUE(tracker.anythingChanged()) << "the other section keeps its mark";
    EXPECT_FALSE(tracker.sectionChanged(ChangeTracker::SECTION_DEVICES));
}

TEST(ChangeTracker, NumbersOutsideTheEnumerationsChangeNothing) {
    ChangeTracker tracker;
    for (const int id : {-1, 19, 1000}) {
        tracker.subsectionChanged(Subsection(id), true);
        tracker.sectionChanged(Section(id), true);
        EXPECT_FALSE(tracker.subsectionChanged(Subsection(id)));
        EXPECT_EQ(ChangeTracker::subsectionIdToSectionId(Subsection(id)), ChangeTracker::SECTION_USERS);
    }
    EXPECT_FALSE(tracker.anythingChanged());
}

} // namespace
