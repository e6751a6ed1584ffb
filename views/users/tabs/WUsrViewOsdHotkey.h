#pragma once

#include "widgets/WSettingsTab.h"
#include "widgets/WSettingsTable.h"

/// How a user opens the on-screen display, and when it closes by itself.
class WUsrViewOsdHotkeyTable : public WSettingsTable {
public:
    explicit WUsrViewOsdHotkeyTable(Wt::WContainerWidget* parent = nullptr);
};

class WUsrViewOsdHotkey : public WSettingsTab {
public:
    explicit WUsrViewOsdHotkey(Wt::WContainerWidget* parent = nullptr);
};
