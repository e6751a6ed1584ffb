#include "widgets/WSettingsTabBase.h"

#include "frame/TabLabel.h"
#include "shell/MirlApplication.h"

#include <Wt/WFormWidget>
#include <Wt/WMenuItem>
#include <Wt/WTableView>
#include <Wt/WText>

namespace {

constexpr const char* kLockedListStyle = "mirl-wtableview-disabled";

} // namespace

WSettingsTabBase::WSettingsTabBase(Wt::WContainerWidget* parent, ChangeTracker::SubsectionId id)
    : Wt::WContainerWidget(parent), mSubsectionId(id) {}

void WSettingsTabBase::indicateChangedContent(bool changed) {
    mChangedContent = changed;
    MirlApplication* application = MirlApplication::current();
    if (!application) return;
    application->subsectionChanged(mSubsectionId, changed);
    MirlUtil_indicateChange(mDetailsMenuItem, changed);
    if (changed)
        lockList(true);
    else if (!application->parentSectionChanged(mSubsectionId))
        lockList(false);
}

void WSettingsTabBase::lockList(bool locked) {
    const Wt::WString why = locked ? tr("page.locked") : Wt::WString();
    if (mFilterField) mFilterField->setDisabled(locked);
    if (mLockNote) mLockNote->setText(why);
    if (!mTableView) return;
    mTableView->setToolTip(why);
    mTableView->setDisabled(locked);
    mTableView->toggleStyleClass(kLockedListStyle, locked);
}

void WSettingsTabBase::focusLabel() {
    if (mDetailsMenuItem) mDetailsMenuItem->setFocus(true);
}

void WSettingsTabBase::changed(Wt::WMenuItem* item, bool changed) {
    MirlUtil_indicateChange(item, changed);
}
