// Settings files, and the way back to the settings of the factory.

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "frame/Confirm.h"
#include "frame/RebootingBox.h"
#include "views/settings/files/WLoadSettingsDialog.h"
#include "views/settings/files/WSaveSettingsDialog.h"
#include "views/settings/page/WSysSettingsView.h"

namespace {

struct Restore {
    const char* value; // written to "reset"
    Confirmation question;
};

constexpr Confirmation question(const char* message) {
    return {.flag = nullptr, // always asked
            .title = "[RSnnn]Confirm Factory Default",
            .message = message,
            .proceed = "[RSnnn]Factory defaults",
            .focusOnCancel = true};
}

constexpr Restore kFull = {
    "factory_default",
    question("[RSnnn]Are you sure you want to restore this Switch to full factory default condition? All "
             "customizations and user accounts will be lost!")};
constexpr Restore kPartial = {
    "factory_default_partial",
    question(
        "[RSnnn]Are you sure you want to do a partial restore of this Switch to factory default condition? All "
        "customizations and all user accounts will be lost! Network settings will be retained.")};

constexpr BoxRow kRestoring = {WMsgBox::Info, "[RSnnn]Restoring"};

void restore(const Restore& way) {
    if (!confirm(way.question)) return;
    standUntilGone(kRestoring, Wt::WString::tr("[RSnnn]Restoring defaults. Please wait."),
                   [&](std::vector<std::string>& errors) {
                       return Db::db.writeString("swx", kThisSwxIndex, "reset", way.value, errors);
                   });
}

} // namespace

void WSysSettingsView::saveSettingsButtonClickedHandler() {
    WSaveSettingsDialog dialog;
    dialog.exec();
}

void WSysSettingsView::loadSettingsButtonClickedHandler() {
    WLoadSettingsDialog dialog;
    dialog.exec();
}

void WSysSettingsView::fullRestoreFactDefaultsButtonClickedHandler() {
    restore(kFull);
}

void WSysSettingsView::partialRestoreFactDefaultsButtonClickedHandler() {
    restore(kPartial);
}
