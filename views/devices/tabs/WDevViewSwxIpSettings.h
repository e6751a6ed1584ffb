#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// Network settings of one address family: an object inside an object of the Switch's record. Addresses of
/// several Switches are shown, but not edited.
class SwxIpSettingsTable : public WSettingsTable {
public:
    enum Row { Method, Address, MaskOrPrefix, Gateway, PrimaryDns, SecondaryDns };

    /// Enables what only a static configuration needs.
    void configMethodSelectionChangedHandler();

    void readFromDatabase(const Indexes& indexes, bool force) override;
    /// Any configuration but a static one is valid.
    bool isAllValid() override;
    bool isAnyValid() override;

protected:
    /// `followers`: rows that are enabled only with a static configuration.
    SwxIpSettingsTable(const SettingsTableSpec& spec, std::span<const SettingsRow> rows,
                       std::span<const Row> followers, Wt::WContainerWidget* parent);

private:
    bool isStatic() const;
    bool isRowValid(Row row) const;

    const char* mFamily; // sub-object of "network"
    std::span<const Row> mFollowers;
};

class WDevViewSwxIpV4SettingsTable : public SwxIpSettingsTable {
public:
    explicit WDevViewSwxIpV4SettingsTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewSwxIpV4Settings : public WSettingsTab {
public:
    explicit WDevViewSwxIpV4Settings(Wt::WContainerWidget* parent = nullptr);
};

class WDevViewSwxIpV6SettingsTable : public SwxIpSettingsTable {
public:
    explicit WDevViewSwxIpV6SettingsTable(Wt::WContainerWidget* parent = nullptr);
};
class WDevViewSwxIpV6Settings : public WSettingsTab {
public:
    explicit WDevViewSwxIpV6Settings(Wt::WContainerWidget* parent = nullptr);
};
