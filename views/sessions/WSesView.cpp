#include "views/sessions/WSesView.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/ActionResults.h"
#include "frame/Confirm.h"
#include "frame/DetailsTabs.h"
#include "frame/RowsInOrder.h"
#include "views/sessions/WEstabSesDialog.h"
#include "views/sessions/WSesViewAttribs.h"
#include "views/sessions/WSesViewList.h"

#include <Wt/WTimer>

namespace {

// Pixels.
constexpr int kListHeight = 190;
constexpr int kListMinHeight = 115;
constexpr int kDetailsHeight = 370; // nine rows

constexpr int kEndMs = 1000; // until the service has parted what was disconnected

using View = WSesView;

// clang-format off
constexpr ActionRow<View, SesAction> kActions[] = {
    {SesAction::Connect, "[RSnnn]Connect Session", "[RSnnn]Connect",
     "[RSnnn]Connect a video/audio/USB session between a specified receiver and a transmitter, using a specified user account.",
     &View::estabSesActionButtonClicked, Needs::Nothing},
    {SesAction::Disconnect, "[RSnnn]Disconnect Sessions", "[RSnnn]Disconnect",
     "[RSnnn]Disconnect an existing video/audio/USB session between a receiver and transmitter.",
     &View::discSesActionButtonClicked, Needs::Records},
};
// clang-format on
constexpr DetailsTabRow<View, SesTab> kTabs[] = {
    {SesTab::Attributes, 0, "[RSnnn]Attributes", makeTab<WSesViewAttribsTab>},
};
static_assert(rowsInOrder(kActions) && rowsInOrder(kTabs));

constexpr BoxRow kConnected = {WMsgBox::Info, "[RSnnn]Session", {"[RSnnn]Close"}};
constexpr BoxRow kFailed = {WMsgBox::Error, "[RSnnn]Error", {"[RSnnn]Close"}};

constexpr Confirmation kConfirmDisconnect = {
    .flag = "enableDisconnectSessionWarning",
    .title = "[RSnnn]Confirm Session Disconnect",
    .message = "[RSnnn]Are you sure you want to disconnect the selected session(s)?",
    .proceed = "[RSnnn]Disconnect"};

void showFailed(const char* what, const ActionResults& results) {
    std::string text = Wt::WString::tr(what).toUTF8();
    for (const std::string& line : results.failures()) text += ' ' + line;
    showBox(kFailed, Wt::WString::fromUTF8(text));
}

} // namespace

WSesView::WSesView(Wt::WContainerWidget* parent)
    : ListPage(parent, {InfoMgr_InfoID::Connections, InfoMgr_InfoID::UserSessions, InfoMgr_InfoID::Users,
                        InfoMgr_InfoID::Receivers, InfoMgr_InfoID::Transmitters}),
      mList(new WSesViewList(tr("[RSnnn]Sessions"))),
      mDetails(new DetailsTabs(tr("[RSnnn]Session Details"), DetailsTabs::FixedHeight, kDetailsHeight, 1)),
      mEndTimer(new Wt::WTimer(this)) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    mDetails->addTabs(this, kTabs, mList);
    place(actions, {{mList, kListHeight, kListMinHeight, 1, kListShare}, {mDetails}});
    giveRoomWhenFolded(*mDetails, *mList);
    setDetails(mDetails);
    setWords({"sessions.count", {WSesViewList::Receiver, WSesViewList::Transmitter}});
    setList(
        *mList, [this] { mList->readFromDatabase(); }, [this] { sesListSelectionChangedHandler(); });
    mEndTimer->setInterval(kEndMs);
    mEndTimer->setSingleShot(true);
    mEndTimer->timeout().connect([this] { readFromDatabase(true); });
}

WNavAccordionStdCell* WSesView::actionCell(SesAction action) const {
    return actions()->cell(static_cast<std::size_t>(action));
}

void WSesView::readFromDatabase(bool force) {
    readFromDatabase(force, force);
}

void WSesView::sesListSelectionChangedHandler() {
    readFromDatabase(false);
}

void WSesView::showSelection(bool forceDetails) {
    if (!mEndTimer->isActive()) mList->refreshDurations();
    const std::size_t count = selection().count();
    actions()->enableFor(count);
    if (count == 0) return mDetails->hideContent();
    mDetails->readFromDatabase(forceDetails, chosenRecords(), false);
    mDetails->showContent();
}

void WSesView::estabSesActionButtonClicked() {
    WEstabSesDialog dialog;
    dialog.exec();
    if (dialog.buttonClicked() != WEstabSesDialog::Connect) return readFromDatabase(false);
    unsigned user = 0, rx = 0, tx = 0;
    Info_ConnectionMode mode{};
    dialog.getSelectedParameters(user, rx, tx, mode);
    // Another mode takes away what was picked, and leaves Connect as it was.
    if (user == 0 || rx == 0 || tx == 0) {
        showBox(kFailed, tr("[RSnnn]Unable to create session.") + " " + tr("sessions.pick"));
        return readFromDatabase(false);
    }
    ActionResults results;
    std::string name;
    std::vector<std::string> dropped;
    Db::db.getRxNameOrEidFromRxIndex(rx, name, dropped);
    results.run(name, [&](auto& errors) { return Db::db.createKvmSession(user, rx, tx, mode, errors); });
    readFromDatabase(true);
    if (results.failed() > 0)
        showFailed("[RSnnn]Unable to create session.", results);
    else
        showBox(kConnected, tr("[RSnnn]Session has been successfully connected."));
}

void WSesView::discSesActionButtonClicked() {
    if (chosenRecords().empty() || !confirm(kConfirmDisconnect, selection().count(), hit())) return;
    const std::vector<unsigned> sessions = chosenRecords(); // those that still run
    ActionResults results;
    std::vector<unsigned> ending;
    for (const unsigned session : sessions) {
        const std::string name =
            mList->table()->textAt(mList->table()->rowOf(session), WSesViewList::Receiver);
        if (results.run(name, [&](auto& errors) { return Db::db.destroyKvmSession(session, errors); }))
            ending.push_back(session);
    }
    selection().clear();
    mList->showEnding(ending);
    mEndTimer->start();
    showSelection(false);
    if (results.failed() > 0) showFailed("[RSnnn]Unable to disconnect session.", results);
}
