#pragma once

#include "frame/TwoListMover.h"
#include "widgets/TargetItem.h"
#include "widgets/WSettingsTab.h"

/// A tab with two lists of Transmitters of the selected users. A selected row keeps what came meanwhile from being
/// shown, but never for other users than those shown: what is saved is written to the users that were read.
class UsrMoverTab : public WSettingsTab, public TwoListMover::Model {
public:
    void readFromDatabase(bool ignoreChangeStatus, const std::vector<unsigned>& indexes, bool force) override;
    /// Any edit of the lists can be saved.
    bool isAnyValid() override { return true; }
    void clearSelection() { mMover->clearSelection(); }
    TwoListMover* mover() const { return mMover; }

protected:
    UsrMoverTab(Wt::WContainerWidget* parent, const MoverListLook& left, const MoverListLook& right,
                std::span<const MoverButton> buttons, int rightLimit = 0);

    void readTables(const std::vector<unsigned>& indexes, bool force) override;
    /// Reads the model and shows it.
    virtual void readModel(const std::vector<unsigned>& users) = 0;

    static std::vector<MoverItem> moverItems(const std::vector<TargetItem>& items, bool withConflicts);

private:
    TwoListMover* mMover;
    std::vector<unsigned> mUsers; // read last
};
