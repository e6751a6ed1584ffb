#pragma once

#include "views/users/model/TxPermissions.h"
#include "views/users/tabs/UsrMoverTab.h"

namespace Wt {
class WCheckBox;
}

/// Which Transmitters the selected users may reach.
class WUsrViewTargets : public UsrMoverTab {
public:
    explicit WUsrViewTargets(Wt::WContainerWidget* parent = nullptr);

    /// Writes to the users that were read.
    unsigned writeToDatabase(const std::vector<unsigned>& indexes, std::vector<std::string>& errors) override;
    virtual void enableAllCheckBoxClickedHandler();

    void move(Move move, const std::vector<unsigned>& indexes) override;
    void show(MoverList& left, MoverList& right) override;

    Wt::WCheckBox* enableAllCheckBox() const { return mEnableAll; }

protected:
    void readModel(const std::vector<unsigned>& users) override;

private:
    TxPermissions mPermissions;
    Wt::WCheckBox* mEnableAll;
};
