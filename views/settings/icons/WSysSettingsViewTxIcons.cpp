#include "views/settings/icons/WSysSettingsViewTxIcons.h"

#include "frame/MoveFile.h"
#include "frame/PngFile.h"
#include "frame/ShowBox.h"
#include "frame/WFileUploadDialog.h"
#include "platform/client/EventLog.h"
#include "shell/MirlPath.h"

#include <Wt/WFileResource>
#include <Wt/WImage>
#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>

#include <boost/bind/bind.hpp>

namespace {

constexpr unsigned kColumns = 8;
constexpr const char* kStyle = "mirl-tx-icon";
constexpr const char* kChosenStyle = "mirl-tx-icon-selected";

constexpr BoxRow kInvalid = {WMsgBox::Warning, "[RSnnn]Invalid File", {"[RSnnn]Close"}};

Wt::WTableCell* cellOf(Wt::WTable& table, unsigned icon) {
    return table.elementAt(static_cast<int>(icon / kColumns), static_cast<int>(icon % kColumns));
}

} // namespace

WSysSettingsViewTxIcons::WSysSettingsViewTxIcons(Wt::WContainerWidget* parent)
    : WSettingsTabBase(parent, ChangeTracker::SUBSECTION_SYS_SETTINGS), mTable(new Wt::WTable(this)),
      mReplaceButton(new Wt::WPushButton(tr("[RSnnn]Replace"), this)) {
    for (unsigned icon = 0; icon < kCustomIcons; ++icon) showIcon(icon);
    mReplaceButton->disable();
    mReplaceButton->clicked().connect(this, &WSysSettingsViewTxIcons::replaceButtonClickedHandler);
}

// Anew, also for a file that has been replaced: the browser then asks for it again.
void WSysSettingsViewTxIcons::showIcon(unsigned icon) {
    Wt::WTableCell* cell = cellOf(*mTable, icon);
    cell->clear();
    const unsigned number = icon + kFirstFile;
    auto* image = new Wt::WImage(cell);
    auto* file = new Wt::WFileResource("image/png", MirlPath_iconFileName(number), image);
    image->setImageLink(Wt::WLink(file));
    image->setAlternateText(tr("tx.icon.number").arg(number));
    image->setStyleClass(icon == mChosen ? kChosenStyle : kStyle);
    image->setAttributeValue("role", "button");
    image->setAttributeValue("aria-pressed", icon == mChosen ? "true" : "false");
    image->setTabIndex(0);
    image->clicked().connect(boost::bind(&WSysSettingsViewTxIcons::customIconClickedHandler, this, icon));
    image->enterPressed().connect(
        boost::bind(&WSysSettingsViewTxIcons::customIconClickedHandler, this, icon));
    mIcons[icon] = image;
}

void WSysSettingsViewTxIcons::customIconClickedHandler(unsigned icon) {
    if (mChosen < kCustomIcons) {
        mIcons[mChosen]->setStyleClass(kStyle);
        mIcons[mChosen]->setAttributeValue("aria-pressed", "false");
    }
    mChosen = icon;
    mIcons[icon]->setStyleClass(kChosenStyle);
    mIcons[icon]->setAttributeValue("aria-pressed", "true");
    mReplaceButton->enable();
}

void WSysSettingsViewTxIcons::replaceButtonClickedHandler() {
    if (mChosen >= kCustomIcons) return;
    WFileUploadDialog dialog;
    dialog.titleSet(tr("[RSnnn]Replace Icon File"));
    dialog.setMessage(
        tr("[RSnnn]Choose a 24 x 24 pixel png icon file to replace the existing custom icon file."));
    dialog.exec();
    if (dialog.result() != WFileUploadDialog::kTransferred) return;
    const std::string uploaded = dialog.serverFileName();
    if (const int verdict = MirlUtil_validate24x24PngFile(uploaded); verdict != PNG_GOOD) {
        showBox(kInvalid,
                tr("[RSnnn]Not an acceptable 24 x 24 PNG file.") + " " +
                    tr(verdict == PNG_TOO_LARGE ? "[RSnnn]File too large."
                                                : "[RSnnn]File may be corrupted or is not 24 x 24 pixels."));
        return;
    }
    if (!moveFile(uploaded, MirlPath_iconFileName(mChosen + kFirstFile))) {
        EventLog_write(2, 7, __func__, "Unable to replace icon file.");
        showBox(kInvalid, tr("result.iconNotReplaced"));
    }
    showIcon(mChosen);
}
