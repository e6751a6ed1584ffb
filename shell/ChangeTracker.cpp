#include "shell/ChangeTracker.h"

#include <array>

namespace {

struct Range {
    int section; // ChangeTracker::SectionId
    int first;
    int last; // inclusive
};

/// Pages of each section; the table is indexed by it.
constexpr std::array<Range, ChangeTracker::kSectionCount> mSectionRanges = {{
    {ChangeTracker::SECTION_USERS, ChangeTracker::SUBSECTION_USR_ATTRIBS,
     ChangeTracker::SUBSECTION_USR_TARGETS},
    {ChangeTracker::SECTION_DEVICES, ChangeTracker::SUBSECTION_SWX_MODE,
     ChangeTracker::SUBSECTION_TX_SETTINGS},
    {ChangeTracker::SECTION_PERIPHERALS, ChangeTracker::SUBSECTION_MON_ATTRIBS,
     ChangeTracker::SUBSECTION_MON_ATTRIBS},
    {ChangeTracker::SECTION_SYSTEM_SETTINGS, ChangeTracker::SUBSECTION_SYS_SETTINGS,
     ChangeTracker::SUBSECTION_SYS_SETTINGS},
    {ChangeTracker::SECTION_EVENTS, ChangeTracker::SUBSECTION_EVENTS, ChangeTracker::SUBSECTION_EVENTS},
}};

constexpr bool rangesCoverAll() {
    int section = 0;
    int next = 0;
    for (const Range& range : mSectionRanges) {
        if (range.section != section++ || range.first != next || range.last < range.first) return false;
        next = range.last + 1;
    }
    return next == ChangeTracker::kSubsectionCount;
}
static_assert(rangesCoverAll(), "every page belongs to exactly one section");

bool isSubsection(int id) {
    return id >= 0 && id < ChangeTracker::kSubsectionCount;
}

Range rangeOf(int section) {
    if (section < 0 || section >= ChangeTracker::kSectionCount) return {section, 0, -1};
    return mSectionRanges[static_cast<std::size_t>(section)];
}

} // namespace

void ChangeTracker::subsectionChanged(SubsectionId id, bool changed) {
    if (isSubsection(id)) mSubsectionFlags.set(static_cast<std::size_t>(id), changed);
}

void ChangeTracker::sectionChanged(SectionId id, bool changed) {
    const Range range = rangeOf(id);
    for (int i = range.first; i <= range.last; ++i)
        mSubsectionFlags.set(static_cast<std::size_t>(i), changed);
}

bool ChangeTracker::subsectionChanged(SubsectionId id) const {
    return isSubsection(id) && mSubsectionFlags.test(static_cast<std::size_t>(id));
}

bool ChangeTracker::sectionChanged(SectionId id) const {
    const Range range = rangeOf(id);
    for (int i = range.first; i <= range.last; ++i) {
        if (mSubsectionFlags.test(static_cast<std::size_t>(i))) return true;
    }
    return false;
}

ChangeTracker::SectionId ChangeTracker::subsectionIdToSectionId(SubsectionId id) {
    for (int section = 0; section < kSectionCount; ++section) {
        const Range range = rangeOf(section);
        if (id >= range.first && id <= range.last) return static_cast<SectionId>(section);
    }
    return SECTION_USERS;
}
