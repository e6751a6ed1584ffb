#include "views/users/tabs/UsrMoverTab.h"

#include <Wt/WVBoxLayout>

UsrMoverTab::UsrMoverTab(Wt::WContainerWidget* parent, const MoverListLook& left, const MoverListLook& right,
                         std::span<const MoverButton> buttons, int rightLimit)
    : WSettingsTab(parent, ChangeTracker::SUBSECTION_USR_TARGETS,
                   {InfoMgr_InfoID::Users, InfoMgr_InfoID::Transmitters, InfoMgr_InfoID::Targets}),
      mMover(new TwoListMover(*this, new MoverList(left), new MoverList(right), buttons, rightLimit)) {
    auto* content = new Wt::WVBoxLayout;
    content->addWidget(mMover);
    setContent(content);
    mMover->moved().connect(contentChanged());
}

void UsrMoverTab::readFromDatabase(bool ignoreChangeStatus, const std::vector<unsigned>& indexes,
                                   bool force) {
    if (mMover->hasSelection() && indexes == mUsers) return;
    WSettingsTab::readFromDatabase(ignoreChangeStatus, indexes, force);
}

void UsrMoverTab::readTables(const std::vector<unsigned>& indexes, bool force) {
    if (hasChanged() && !force) return;
    mUsers = indexes;
    mMover->clearSelection();
    readModel(indexes);
}

std::vector<MoverItem> UsrMoverTab::moverItems(const std::vector<TargetItem>& items, bool withConflicts) {
    const std::string mark = "  " + tr("[RSnnn][conflict]").toUTF8();
    std::vector<MoverItem> result;
    result.reserve(items.size());
    for (const TargetItem& item : items) {
        if (item.conflict && !withConflicts) continue;
        result.push_back(
            {item.index, targetText(item.eid, item.name).toUTF8() + (item.conflict ? mark : "")});
    }
    return result;
}
