#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Name and password of an account.
class WUsrViewAttribsTable : public WSettingsTable {
public:
    explicit WUsrViewAttribsTable(Wt::WContainerWidget* parent = nullptr);

    void readFromDatabase(const Indexes& indexes, bool force) override;
    unsigned writeToDatabase(const Indexes& indexes, Errors& errors) override;
    bool isAllValid() override;
    bool isAnyValid() override;

    /// For an account that was just made: its name and password are still to be entered. Puts the cursor there.
    void beginNewUser();
    /// Empties the password that is not to be changed after all.
    void dropUnusedPassword();

private:
    bool passwordIsChanged() const;
    bool isValid(const char* key) const;
};

class WUsrViewAttribs : public WSettingsTab {
public:
    explicit WUsrViewAttribs(Wt::WContainerWidget* parent = nullptr);

    void beginNewUser() { mTable->beginNewUser(); }

private:
    WUsrViewAttribsTable* mTable;
};
