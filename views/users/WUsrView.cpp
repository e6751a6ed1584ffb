#include "views/users/WUsrView.h"

#include "db/Db.h"
#include "frame/ActionColumn.h"
#include "frame/DetailsTabs.h"
#include "frame/RowsInOrder.h"
#include "shell/MirlApplication.h"
#include "views/users/list/WUsrViewList.h"
#include "views/users/tabs/WUsrViewAttribs.h"
#include "views/users/tabs/WUsrViewFavTargets.h"
#include "views/users/tabs/WUsrViewOsdFx.h"
#include "views/users/tabs/WUsrViewOsdHotkey.h"
#include "views/users/tabs/WUsrViewPermissions.h"
#include "views/users/tabs/WUsrViewStatus.h"
#include "views/users/tabs/WUsrViewTargets.h"

#include <Wt/WTabWidget>

#include <algorithm>

namespace {

// Pixels.
constexpr int kListHeight = 190;
constexpr int kListMinHeight = 115;
constexpr int kDetailsHeight = 482;

using View = WUsrView;

// clang-format off
constexpr ActionRow<View, UserAction> kActions[] = {
    {UserAction::New, "[RSnnn]New User", "[RSnnn]New",
     "[RSnnn]Create a new user account. Each user of the system requires an account, with a username and password. Users can be assigned the Administrator or User role.",
     &View::newUsrActionButtonClicked, Needs::Nothing},
    {UserAction::Login, "[RSnnn]Login User", "[RSnnn]Login",
     "[RSnnn]Log a user in to a specific Receiver by selecting a user on the list then clicking the Login button.",
     &View::loginUsrActionButtonClicked, Needs::OneRecord},
    {UserAction::Logout, "[RSnnn]Logout User", "[RSnnn]Logout",
     "[RSnnn]Log one or more users out of Receiver(s) by selecting user(s) on the list then clicking the Logout button.",
     &View::logoutUsrActionButtonClicked},
    {UserAction::Delete, "[RSnnn]Delete User(s)", "[RSnnn]Delete",
     "[RSnnn]Delete one or more selected user accounts from the system.",
     &View::deleteUsrActionButtonClicked, Needs::Records},
};
constexpr DetailsTabRow<View, UsrTab> kTabs[] = {
    {UsrTab::Attributes, 0, "[RSnnn]Attributes", makeTab<WUsrViewAttribs>,
     &View::attribsSaveButtonClickedHandler, &View::attribsCancelButtonClickedHandler},
    {UsrTab::Permissions, 0, "[RSnnn]Permissions", makeTab<WUsrViewPermissions>},
    {UsrTab::Targets, 0, "[RSnnn]Targets", makeTab<WUsrViewTargets>,
     &View::targetsSaveButtonClickedHandler, &View::targetsCancelButtonClickedHandler},
    {UsrTab::Favorites, 0, "[RSnnn]Favorites", makeTab<WUsrViewFavTargets>,
     &View::favsSaveButtonClickedHandler, &View::favsCancelButtonClickedHandler},
    {UsrTab::Osd, 0, "[RSnnn]OSD", makeTab<WUsrViewOsdHotkey>},
    {UsrTab::OsdFx, 0, "[RSnnn]OSD F1-F12", makeTab<WUsrViewOsdFx>},
    {UsrTab::Status, 0, "[RSnnn]Status", makeTab<WUsrViewStatus>},
};
// clang-format on
static_assert(rowsInOrder(kActions) && rowsInOrder(kTabs));

// On purpose not the numbers of these tabs, which are 2 and 3: a selection goes when the tab is left, but stays when
// the tab that is entered has this number.
constexpr int kKeepsTargetsSelection = 4;
constexpr int kKeepsFavsSelection = 5;

} // namespace

WUsrView::WUsrView(Wt::WContainerWidget* parent)
    : ListPage(parent, {InfoMgr_InfoID::Users, InfoMgr_InfoID::UserSessions, InfoMgr_InfoID::AdminSessions}),
      mList(new WUsrViewList(tr("[RSnnn]Users"))),
      mDetails(new DetailsTabs(tr("[RSnnn]User Details"), DetailsTabs::FixedHeight, kDetailsHeight, 1)) {
    auto* actions = new ActionColumn;
    actions->addActions(this, kActions);
    mDetails->addTabs(this, kTabs, mList);
    mDetails->tabWidget(0)->currentChanged().connect(this, &WUsrView::tabChangedHandler);
    place(actions, {{mList, kListHeight, kListMinHeight, 0, kListShare}, {.widget = mDetails, .stretch = 1}});
    giveRoomWhenFolded(*mDetails, *mList);
    setDetails(mDetails);
    setWords({"users.count", {WUsrViewList::Name, WUsrViewList::FullName}});
    setList(
        *mList, [this] { mList->readFromDatabase(); }, [this] { usrListSelectionChangedHandler(); });
}

WNavAccordionStdCell* WUsrView::actionCell(UserAction action) const {
    return actions()->cell(static_cast<std::size_t>(action));
}

WUsrViewAttribs& WUsrView::attribs() const {
    return static_cast<WUsrViewAttribs&>(
        *mDetails->settingsTab(static_cast<std::size_t>(UsrTab::Attributes)));
}

WUsrViewTargets& WUsrView::targets() const {
    return static_cast<WUsrViewTargets&>(*mDetails->settingsTab(static_cast<std::size_t>(UsrTab::Targets)));
}

WUsrViewFavTargets& WUsrView::favs() const {
    return static_cast<WUsrViewFavTargets&>(
        *mDetails->settingsTab(static_cast<std::size_t>(UsrTab::Favorites)));
}

void WUsrView::showSelection(bool forceDetails) {
    const std::size_t count = selection().count();
    actions()->enableFor(count);
    actions()->enable(static_cast<std::size_t>(UserAction::Logout),
                      count > 0 && mList->allAreAtReceivers(chosenRecords()));
    mDetails->setHidden(count == 0);
    mDetails->setDisabled(count == 0);
    if (count > 0 || forceDetails) mDetails->readFromDatabase(forceDetails, chosenRecords(), false);
}

void WUsrView::usrListSelectionChangedHandler() {
    readFromDatabase(true, false);
}

void WUsrView::tabChangedHandler() {
    const int tab = mDetails->shownTab();
    if (tab != kKeepsTargetsSelection) targets().clearSelection();
    if (tab != kKeepsFavsSelection) favs().clearSelection();
    const WSettingsTab* shown = mDetails->shownSettingsTab();
    if (!shown || !shown->hasChanged()) mDetails->readFromDatabase(true, chosenRecords(), false);
}

std::vector<unsigned> WUsrView::chosenRecords() const {
    std::vector<unsigned> users = ListPage::chosenRecords();
    const MirlApplication* app = MirlApplication::current();
    const unsigned own = app ? app->getIndexOfCurrentlyLoggedInUsr() : 0;
    std::ranges::stable_partition(users, [own](unsigned user) { return user != own; });
    return users;
}

bool WUsrView::loginStands() const {
    MirlApplication* app = MirlApplication::current();
    if (!app) return true;
    app->checkSession();
    return app->userIsLoggedIn();
}

void WUsrView::afterSave() {
    loginStands(); // who has disabled or demoted himself is out with the save
}

void WUsrView::attribsSaveButtonClickedHandler() {
    const unsigned provisional = mProvisional;
    mProvisional = 0; // what is read behind a save is read of an account like any other
    if (!save(attribs())) mProvisional = provisional;
}

void WUsrView::attribsCancelButtonClickedHandler() {
    if (newUserPending()) {
        dropProvisionalUser();
        mList->table()->clearSelection();
    }
    cancel(attribs());
}

void WUsrView::discardChanges() {
    if (newUserPending()) attribsCancelButtonClickedHandler();
}

void WUsrView::dropProvisionalUser() {
    if (mProvisional == 0) return;
    std::vector<std::string> ignored;
    Db::db.deleteRecordByIndex("user", mProvisional, ignored);
    mProvisional = 0;
}

void WUsrView::targetsSaveButtonClickedHandler() {
    targets().clearSelection();
    save(targets());
}

void WUsrView::targetsCancelButtonClickedHandler() {
    targets().clearSelection();
    cancel(targets());
}

void WUsrView::favsSaveButtonClickedHandler() {
    favs().clearSelection();
    save(favs());
}

void WUsrView::favsCancelButtonClickedHandler() {
    favs().clearSelection();
    cancel(favs());
}
