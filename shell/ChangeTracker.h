#pragma once

#include <bitset>

/// Which settings pages of a session hold unsaved edits: one flag per page, grouped by main tab.
/// Flags only; the edited values stay in the widgets. Pages may share a flag: its value is then the last word
/// of any of them.
class ChangeTracker {
public:
    /// A main tab with settings pages; the number is an index into MirlApplication's tab items.
    enum SectionId {
        SECTION_USERS,
        SECTION_DEVICES,
        SECTION_PERIPHERALS,
        SECTION_SYSTEM_SETTINGS,
        SECTION_EVENTS,
    };

    enum SubsectionId {
        SUBSECTION_USR_ATTRIBS,
        SUBSECTION_USR_PERMISSIONS,
        SUBSECTION_USR_OSD_HOTKEY,
        SUBSECTION_USR_OSD_FX,
        SUBSECTION_USR_TARGETS, // targets and favourite targets share it
        SUBSECTION_SWX_MODE,
        SUBSECTION_SWX_ATTRIBS,
        SUBSECTION_SWX_SETTINGS,
        SUBSECTION_SWX_IPV4,
        SUBSECTION_SWX_IPV6,
        SUBSECTION_SWX_NTP,
        SUBSECTION_RX_ATTRIBS,
        SUBSECTION_RESERVED, // no page uses it
        SUBSECTION_RX_SETTINGS,
        SUBSECTION_TX_ATTRIBS,
        SUBSECTION_TX_SETTINGS,
        SUBSECTION_MON_ATTRIBS,
        SUBSECTION_SYS_SETTINGS, // all pages of the system settings share it
        SUBSECTION_EVENTS,       // no page uses it yet
    };

    static constexpr int kSectionCount = SECTION_EVENTS + 1;
    static constexpr int kSubsectionCount = SUBSECTION_EVENTS + 1;

    /// Ids outside the enumerations are ignored, and read as unchanged.
    void subsectionChanged(SubsectionId id, bool changed);
    void sectionChanged(SectionId id, bool changed);

    bool subsectionChanged(SubsectionId id) const;
    bool sectionChanged(SectionId id) const;
    bool anythingChanged() const { return mSubsectionFlags.any(); }

    /// First section that holds the id; SECTION_USERS when none does.
    static SectionId subsectionIdToSectionId(SubsectionId id);

private:
    std::bitset<kSubsectionCount> mSubsectionFlags;
};
