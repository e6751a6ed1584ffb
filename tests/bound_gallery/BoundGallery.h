#pragma once

#include "shell/MirlApplication.h"
#include "tests/bound_gallery/Specimens.h"

#include <vector>

namespace Wt {
class WContainerWidget;
class WText;
} // namespace Wt

/// Every bound widget in every state, panels with dividers, and dialogs, in a session that needs no login.
/// A cell has the id "CLASS/STATE", such as "WUsr/2". "refresh" and "auto" read all cells anew but those of
/// equal records, as a page's timer does; "force" throws edits away.
class BoundGallery : public MirlApplication {
public:
    explicit BoundGallery(const Wt::WEnvironment& environment) : MirlApplication(environment) {}
    void build();

private:
    struct Cell {
        const Specimen* specimen;
        State state;
        SettingsField field;
    };

    void buildControls();
    void buildTable();
    void addCell(const Specimen& specimen, State state, Wt::WContainerWidget* cell,
                 const std::string& labels);
    void read(const Cell& cell, bool force);
    void readAll(State state, bool force);
    void store(bool different);
    void readAgain(bool force);

    Wt::WText* mLog = nullptr;
    Wt::WText* mRefreshes = nullptr;
    Wt::WTimer* mAuto = nullptr;
    bool mRepeats = false;
    int mRefreshCount = 0;
    std::vector<Cell> mCells;
};

/// A column of resizable panels with dividers, as the dashboard has it.
void addPanels(Wt::WContainerWidget* parent);
/// Buttons that open the dialogs; `log` tells how they ended.
void addDialogs(Wt::WContainerWidget* parent, Wt::WText* log);
