#include "views/users/tabs/WUsrViewFavTargets.h"

#include <Wt/WText>

namespace {

constexpr MoverButton kButtons[] = {
    {Move::Add, "[RSnnn]Add (right arrow)"},
    {Move::Remove, "[RSnnn](left arrow) Remove"},
    {Move::Up, "[RSnnn]Move Up"},
    {Move::Down, "[RSnnn]Move Down"},
};

} // namespace

WUsrViewFavTargets::WUsrViewFavTargets(Wt::WContainerWidget* parent)
    : UsrMoverTab(parent, {.header = "[RSnnn]Available Transmitters"},
                  {.header = "[RSnnn]Favorites (up to 32)", .sorted = false}, kButtons,
                  static_cast<int>(TxFavorites::kMostFavorites)),
      mDiffer(new Wt::WText(tr("users.favorites.differ"))) {
    mDiffer->hide();
    addBelowTables(mDiffer);
}

void WUsrViewFavTargets::readModel(const std::vector<unsigned>& users) {
    mFavorites.populate(users);
    mover()->refresh();
}

unsigned WUsrViewFavTargets::writeToDatabase(const std::vector<unsigned>& /*indexes*/,
                                             std::vector<std::string>& errors) {
    return mFavorites.writeToDatabase(errors);
}

void WUsrViewFavTargets::move(Move move, const std::vector<unsigned>& indexes) {
    if (move == Move::Add) mFavorites.addToFavorites(indexes);
    if (move == Move::Remove) mFavorites.removeFromFavorites(indexes);
    if (move == Move::Up) mFavorites.moveFavoriteUp(indexes.front());
    if (move == Move::Down) mFavorites.moveFavoriteDown(indexes.front());
}

void WUsrViewFavTargets::show(MoverList& left, MoverList& right) {
    left.setItems(moverItems(mFavorites.getAvailFavTargetItems(), false));
    right.setItems(moverItems(mFavorites.getFavTargetItems(), false));
    mDiffer->setHidden(!mFavorites.favoritesDiffer());
}
