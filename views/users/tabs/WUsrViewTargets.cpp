#include "views/users/tabs/WUsrViewTargets.h"

#include <Wt/WCheckBox>

namespace {

constexpr MoverButton kButtons[] = {
    {Move::AddAll, "[RSnnn]Add All (right arrow)"},
    {Move::Add, "[RSnnn]Add (right arrow)"},
    {Move::Remove, "[RSnnn](left arrow) Remove"},
    {Move::RemoveAll, "[RSnnn](left arrow) Remove All"},
};

} // namespace

WUsrViewTargets::WUsrViewTargets(Wt::WContainerWidget* parent)
    : UsrMoverTab(parent, {.header = "[RSnnn]Available Transmitters"},
                  {.header = "[RSnnn]Allowed Transmitters"}, kButtons),
      mEnableAll(new Wt::WCheckBox(tr("[RSnnn]Enable access to all targets"))) {
    mEnableAll->addStyleClass("mirl-checkbox");
    mEnableAll->setToolTip(tr("tt.usr.targets.enableAll"));
    mEnableAll->changed().connect(this, &WUsrViewTargets::enableAllCheckBoxClickedHandler);
    addBelowTables(mEnableAll);
}

void WUsrViewTargets::readModel(const std::vector<unsigned>& users) {
    mPermissions.populate(users);
    mover()->refresh();
    const TxPermissions::EnableAll all = mPermissions.getEnableAll();
    mover()->setUsable(all == TxPermissions::ENABLE_ALL_NO);
    if (all == TxPermissions::ENABLE_ALL_MIXED) {
        mEnableAll->setCheckState(Wt::PartiallyChecked);
        // On purpose: a click leads to all or to none. What is mixed can be made one, never mixed again.
        mEnableAll->setTristate(false);
    } else {
        mEnableAll->setChecked(all == TxPermissions::ENABLE_ALL_YES);
    }
}

void WUsrViewTargets::enableAllCheckBoxClickedHandler() {
    const bool all = mEnableAll->isChecked();
    mPermissions.setEnableAll(all ? TxPermissions::ENABLE_ALL_YES : TxPermissions::ENABLE_ALL_NO);
    // On purpose: without access to all, everybody starts from an empty list. Cancel brings the lists back.
    if (!all) mPermissions.disallowAll();
    mover()->refresh();
    mover()->setUsable(!all);
    contentChanged().emit();
}

unsigned WUsrViewTargets::writeToDatabase(const std::vector<unsigned>& /*indexes*/,
                                          std::vector<std::string>& errors) {
    return mPermissions.writeToDatabase(errors);
}

void WUsrViewTargets::move(Move move, const std::vector<unsigned>& indexes) {
    if (move == Move::AddAll) mPermissions.allowAll();
    if (move == Move::Add) mPermissions.addToAllowed(indexes);
    if (move == Move::Remove) mPermissions.removeFromAllowed(indexes);
    if (move == Move::RemoveAll) mPermissions.disallowAll();
}

void WUsrViewTargets::show(MoverList& left, MoverList& right) {
    left.setItems(moverItems(mPermissions.getAvailableTargetItems(), true));
    right.setItems(moverItems(mPermissions.getAllowedTargetItems(), true));
}
