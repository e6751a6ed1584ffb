// Unsaved changes of the session: the tracker, made visible on the main tabs.

#include "frame/TabLabel.h"
#include "shell/MirlApplication.h"
#include "views/cascade/WManagedView.h"
#include "views/cascade/WSlaveSettingsView.h"
#include "views/users/WUsrView.h"

void MirlApplication::subsectionChanged(ChangeTracker::SubsectionId id, bool changed) {
    mChangeTracker.subsectionChanged(id, changed);
    const ChangeTracker::SectionId section = ChangeTracker::subsectionIdToSectionId(id);
    MirlUtil_indicateChange(mSectionTabItems[section], mChangeTracker.sectionChanged(section));
}

void MirlApplication::sectionChanged(ChangeTracker::SectionId id, bool changed) {
    mChangeTracker.sectionChanged(id, changed);
    // On purpose: the system settings get no sign this way.
    if (id == ChangeTracker::SECTION_SYSTEM_SETTINGS || id < 0 || id >= ChangeTracker::kSectionCount) return;
    MirlUtil_indicateChange(mSectionTabItems[id], changed);
}

bool MirlApplication::sectionChanged(ChangeTracker::SectionId id) const {
    return mChangeTracker.sectionChanged(id);
}

bool MirlApplication::parentSectionChanged(ChangeTracker::SubsectionId id) const {
    return mChangeTracker.sectionChanged(ChangeTracker::subsectionIdToSectionId(id));
}

bool MirlApplication::anythingChanged() const {
    if (mManagedView) return mManagedView->anythingChanged();
    return mSlaveUiActive ? mSlaveSettingsView->anythingChanged() : mChangeTracker.anythingChanged();
}

void MirlApplication::discardChanges() {
    if (mUsrView) mUsrView->discardChanges();
}
