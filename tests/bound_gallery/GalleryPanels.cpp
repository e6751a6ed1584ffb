#include "frame/WAutoSizeTableView.h"
#include "frame/WCollapsingObjListContextPanel.h"
#include "frame/WFileUploadDialog.h"
#include "frame/WFlashDisplayDialog.h"
#include "frame/WMsgBox.h"
#include "frame/WMsgBoxDbErr.h"
#include "frame/WNumericSortFilterProxyModel.h"
#include "frame/WProgressDialog.h"
#include "tests/bound_gallery/BoundGallery.h"

#include <Wt/WGridLayout>
#include <Wt/WPushButton>
#include <Wt/WStandardItemModel>
#include <Wt/WText>

namespace {

/// A list of made-up records in a panel that can be dragged.
class List : public WCollapsingObjListContextPanel {
public:
    explicit List(const char* title) : WCollapsingObjListContextPanel(title, ResizableHeight, 260, 3, true) {
        for (int column = 1; column < 3; ++column) setHeader(column, column == 1 ? "Kind" : "Name");
        mTable->setColumnHidden(0, true);
        mTable->setSelectionMode(Wt::ExtendedSelection);
        mProxy->sort(2, Wt::AscendingOrder);
        setMinimumSize(Wt::WLength::Auto, Wt::WLength(24));
        setOverflow(OverflowHidden);
        List::readFromDatabase();
    }

    void readFromDatabase() override {
        mModel->removeRows(0, mModel->rowCount());
        mModel->insertRows(0, 12);
        for (int row = 0; row < 12; ++row) {
            setCell(row, 0, static_cast<unsigned>(row + 1));
            setCell(row, 1, "kind");
            setCell(row, 2, "name" + std::to_string(row + 1));
        }
    }
};

void runUpload(Wt::WText* log) {
    WFileUploadDialog dialog;
    dialog.exec();
    log->setText(Wt::WString("upload {1} '{2}' '{3}'")
                     .arg(dialog.result())
                     .arg(dialog.serverFileName())
                     .arg(dialog.clientFileName()));
}

void runFlash(Wt::WText* log) {
    WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
    const bool accepted = dialog.exec() == Wt::WDialog::Accepted;
    log->setText(Wt::WString("flash {1} {2} {3}")
                     .arg(accepted ? "accepted" : "rejected")
                     .arg(dialog.cancelWasClicked() ? "cancel" : "flash")
                     .arg(dialog.getDurationSec()));
}

void runProgress(Wt::WText* log) {
    WProgressDialog dialog("firmware-update.png", "Update", "Working.", "Stop");
    dialog.progressUpdate(40);
    dialog.exec();
    log->setText("progress ended");
}

void runBox(Wt::WText* log) {
    WMsgBox box(WMsgBox::Warning);
    box.titleSet("Warning");
    box.msgSet("Go on?\nThe second line.");
    box.checkBoxSet("Do not ask again.");
    for (const char* text : {"Yes", "No", "Perhaps", "Ignored"}) box.buttonAdd(text);
    box.exec();
    log->setText(
        Wt::WString("box {1} {2}").arg(box.buttonClicked()).arg(box.isCheckBoxChecked() ? "ticked" : "not"));
}

void runErrors(Wt::WText* log) {
    WMsgBoxDbErr box(WMsgBoxDbErr::Write, {"The name is too long.", "The <b>second</b> error."});
    box.exec();
    log->setText("errors closed");
}

} // namespace

void addPanels(Wt::WContainerWidget* parent) {
    auto* frame = new Wt::WContainerWidget(parent);
    frame->setId("panels");
    frame->setHeight(Wt::WLength(800));
    auto* grid = new Wt::WGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    for (int row = 0; row < 2; ++row) {
        auto* list = new List(row == 0 ? "Upper list" : "Lower list");
        list->setInline(false);
        list->setId(row == 0 ? "upper" : "lower");
        grid->addWidget(list, row, 0);
        grid->setRowResizable(row);
    }
    auto* spacer = new Wt::WContainerWidget;
    spacer->setHeight(Wt::WLength(200));
    grid->addWidget(spacer, 2, 0);
    frame->setLayout(grid);
}

void addDialogs(Wt::WContainerWidget* parent, Wt::WText* log) {
    const struct {
        const char* id;
        void (*run)(Wt::WText*);
    } rows[] = {{"upload", runUpload},
                {"flash", runFlash},
                {"progress", runProgress},
                {"box", runBox},
                {"errors", runErrors}};
    auto* bar = new Wt::WContainerWidget(parent);
    for (const auto& row : rows) {
        auto* button = new Wt::WPushButton(row.id, bar);
        button->setId(row.id);
        button->clicked().connect(std::bind(row.run, log));
    }
}
