#include "views/cascade/OneSwitchPage.h"

#include "db/Db.h"
#include "db/HeldRecords.h"
#include "db/ThisSwx.h"
#include "frame/ActionColumn.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/OwnAddress.h"
#include "frame/RebootingBox.h"
#include "frame/WContextPanel.h"
#include "frame/WFlashDisplayDialog.h"
#include "frame/WMsgBoxDbErr.h"
#include "views/cascade/CascadeRequest.h"
#include "views/devices/tabs/WDevViewSwxIpSettings.h"
#include "views/users/tabs/WUsrViewAttribs.h"

#include <Wt/WPushButton>
#include <Wt/WText>

#include <algorithm>

namespace {

constexpr Confirmation kConfirmReboot = {
    .flag = "enableResetDevicesWarning",
    .title = "[RSnnn]Confirm Reboot",
    .message =
        "[RSnnn]Are you sure you want to reboot this Switch? Any active user sessions will be terminated.",
    .proceed = "[RSnnn]Reboot"};
constexpr BoxRow kConfirmPromote = {
    WMsgBox::Warning, "managed.confirm.promote.peer.title", {"[RSnnn]Proceed", "[RSnnn]Cancel"}};
constexpr BoxRow kFlashed = {WMsgBox::Info, "[RSnnn]Completed", {"[RSnnn]Close"}};

} // namespace

OneSwitchPage::OneSwitchPage(const Spec& spec, WSettingsTable* mode, Wt::WContainerWidget* parent)
    : PageFrame(parent), mSpec(spec), mUser(new WUsrViewAttribsTable),
      mExplanation(new Wt::WText(tr(spec.explanation), Wt::PlainText)),
      mCancel(new Wt::WPushButton(tr("[RSnnn]Cancel"))), mSave(new Wt::WPushButton(tr("[RSnnn]Save"))) {
    auto* content = new Wt::WContainerWidget;
    content->setStyleClass("mirl-one-switch");
    content->setOverflow(Wt::WContainerWidget::OverflowAuto);
    mExplanation->setInline(false);
    mExplanation->setStyleClass("mirl-explanation");
    content->addWidget(mExplanation);
    addSection(content, mSpec.modeHeading, mode);
    addSection(content, "[RSnnn]IPv4 Network Settings", new WDevViewSwxIpV4SettingsTable);
    addSection(content, "[RSnnn]IPv6 Network Settings", new WDevViewSwxIpV6SettingsTable);
    addSection(content, "[RSnnn]Administrative User", mUser);
    auto* buttons = new Wt::WContainerWidget(content);
    buttons->setStyleClass("mirl-buttons");
    buttons->addWidget(mCancel);
    buttons->addWidget(mSave);
    mCancel->clicked().connect(this, &OneSwitchPage::cancelButtonClickedHandler);
    mSave->clicked().connect(this, &OneSwitchPage::saveButtonClickedHandler);
    enableButtons();

    auto* panel = new WContextPanel(tr("[RSnnn]Settings"));
    panel->setContent(content, 1, Wt::AlignJustify);
    place(new ActionColumn, {{.widget = panel, .stretch = 1}});
}

void OneSwitchPage::addSection(Wt::WContainerWidget* content, const char* heading, WSettingsTable* table) {
    auto* text = new Wt::WText(tr(heading), Wt::PlainText, content);
    text->setInline(false);
    text->setStyleClass("mirl-label");
    content->addWidget(table);
    table->contentChanged().connect(this, &OneSwitchPage::contentChangedHandler);
    mTables.push_back(table);
}

std::vector<unsigned> OneSwitchPage::recordsOf(const WSettingsTable* table,
                                               const WUsrViewAttribsTable* user) {
    // The account's own record, which need not be the first one: another administrator's password is none of this page's.
    return {table == user ? Db::db.getIndexOfCurrentlyLoggedInMirlUsr() : kThisSwxIndex};
}

void OneSwitchPage::readFromDatabase(bool force) {
    HeldRecords held;
    const HeldRecords::Use use(held);
    for (WSettingsTable* table : mTables)
        if (force || !table->anyWidgetHasFocus()) table->readFromDatabase(recordsOf(table, mUser), force);
    setDependentWidgets();
}

bool OneSwitchPage::anythingChanged() const {
    return std::ranges::any_of(mTables, [](const WSettingsTable* table) { return table->tableChanged(); });
}

void OneSwitchPage::contentChangedHandler() {
    mUser->dropUnusedPassword();
    setDependentWidgets();
    enableButtons();
}

void OneSwitchPage::enableButtons() {
    const bool changed = anythingChanged();
    mSave->setEnabled(
        changed && std::ranges::all_of(mTables, [](WSettingsTable* table) { return table->isAllValid(); }));
    mCancel->setEnabled(changed);
}

void OneSwitchPage::saveButtonClickedHandler() {
    const bool reboots = modeIsChanged(); // saving ends the marks that tell it
    const OwnAddress before;
    unsigned result = 0;
    std::vector<std::string> errors;
    for (WSettingsTable* table : mTables) result |= table->writeToDatabase(recordsOf(table, mUser), errors);
    if (result != 0 || !errors.empty()) WMsgBoxDbErr(WMsgBoxDbErr::Write, errors).exec();
    before.tellIfMoved(); // before a reboot, which is the last that this page tells
    if (reboots) rebootThisSwx(tr(mSpec.rebootsNow));
    // What could not be written for its own fault is still there to be mended; all else shows what is stored.
    readFromDatabase(false);
    enableButtons();
}

void OneSwitchPage::cancelButtonClickedHandler() {
    mSave->disable();
    mCancel->disable();
    readFromDatabase(true);
}

void OneSwitchPage::rebootButtonClicked() {
    if (confirm(kConfirmReboot)) rebootThisSwx(tr("[RSnnn]Switch rebooting now."));
}

void OneSwitchPage::flashButtonClicked() {
    WFlashDisplayDialog dialog("[RSnnn]device flash explanation");
    dialog.exec();
    if (dialog.cancelWasClicked()) return;
    const unsigned seconds = dialog.getDurationSec(); // 0 stops
    ActionResults results;
    std::string eid;
    results.run(tr("[RSnnn]Flash Display").toUTF8(), [&](std::vector<std::string>& errors) -> unsigned {
        if (Db::db.readString("swx", kThisSwxIndex, "eid", eid, errors) != 0) return 1;
        return Db::db.triggerLcdBacklightFlash(eid.c_str(), "swxControl", seconds, errors);
    });
    if (results.failed() > 0) return showFailures(results);
    showBox(kFlashed, tr(seconds == 0 ? "[RSnnn]1 device was commanded to stop flashing its display."
                                      : "[RSnnn]1 device was commanded to start flashing its display."));
}

void OneSwitchPage::promotePeerButtonClicked() {
    if (showBox(kConfirmPromote, tr("managed.confirm.promote.peer.text")) == 1)
        changeCascade("promote_peer", __func__);
}
