#pragma once

#include "views/users/model/TxFavorites.h"
#include "views/users/tabs/UsrMoverTab.h"

namespace Wt {
class WText;
}

/// The favourite Transmitters of the selected users, in their order.
class WUsrViewFavTargets : public UsrMoverTab {
public:
    explicit WUsrViewFavTargets(Wt::WContainerWidget* parent = nullptr);

    /// Writes to the users that were read.
    unsigned writeToDatabase(const std::vector<unsigned>& indexes, std::vector<std::string>& errors) override;

    void move(Move move, const std::vector<unsigned>& indexes) override;
    void show(MoverList& left, MoverList& right) override;

    /// Says that the users' lists differ, which an empty list does not.
    Wt::WText* differHint() const { return mDiffer; }

protected:
    void readModel(const std::vector<unsigned>& users) override;

private:
    TxFavorites mFavorites;
    Wt::WText* mDiffer;
};
