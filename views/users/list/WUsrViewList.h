#pragma once

#include "frame/WObjListContextPanel.h"

#include <Wt/WAbstractItemView>

#include <set>
#include <string>
#include <vector>

/// List of all accounts. Column 0 is the hidden record index.
class WUsrViewList : public WObjListContextPanel {
public:
    enum Column { Index, Name, FullName, Role, Status };
    static constexpr int kColumnCount = 5;

    explicit WUsrViewList(const Wt::WString& title, Wt::WContainerWidget* parent = nullptr);

    /// In three exchanges, whatever the number of users.
    void readFromDatabase() override;

    /// Selects the first row whose name is exactly this one, and no other, and scrolls to it. False: there is none.
    virtual bool selectEntryByName(const std::string& name, Wt::WAbstractItemView::ScrollHint hint);
    virtual void selectEntryByRowIndex(int row, Wt::WAbstractItemView::ScrollHint hint); // of the proxy

    /// Whether every one of these users is logged in at a Receiver, as of the last rebuild.
    bool allAreAtReceivers(const std::vector<unsigned>& users) const;
    /// Name of a user as the list shows it.
    std::string nameOf(unsigned user) const;

private:
    std::set<unsigned> mAtReceivers;
};
