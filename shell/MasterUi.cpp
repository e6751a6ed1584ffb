// The pages of a logged-in user: which of the three variants, and the main tabs of the master variant.

#include "db/Db.h"
#include "db/ThisSwx.h"
#include "frame/PageFrame.h"
#include "frame/Place.h"
#include "platform/client/Attributes.h"
#include "platform/client/EventLog.h"
#include "shell/MirlApplication.h"
#include "shell/SteadyClock.h"
#include "shell/UiVariant.h"
#include "shell/WStandardHeader.h"
#include "views/cascade/WCascadeView.h"
#include "views/cascade/WManagedView.h"
#include "views/cascade/WSlaveSettingsView.h"
#include "views/dash/WDashView.h"
#include "views/devices/page/WDevView.h"
#include "views/events/WEventView.h"
#include "views/peripherals/WPeriphView.h"
#include "views/sessions/WSesView.h"
#include "views/settings/page/WSysSettingsView.h"
#include "views/users/WUsrView.h"

#include <Wt/WTabWidget>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

#include <algorithm>

/// One main tab: its name in the address, its label, its place among the section tab items (-1 for none),
/// and what to call on its view.
struct MirlApplication::MainTab {
    const char* name;
    const char* label;
    int section;
    Wt::WWidget* (*make)(MirlApplication&);
    void (*read)(MirlApplication&);
    void (*poll)(MirlApplication&, bool on);

    template <auto Member, auto... ReadArguments>
    static constexpr MainTab of(const char* name, const char* label, int section = -1) {
        return {name,
                label,
                section,
                make_<Member>,
                [](MirlApplication& app) { (app.*Member)->readFromDatabase(ReadArguments...); },
                [](MirlApplication& app, bool on) {
                    on ? (app.*Member)->enableAutoRefresh() : (app.*Member)->disableAutoRefresh();
                }};
    }

private:
    template <auto Member>
    static Wt::WWidget* make_(MirlApplication& app) {
        using View = std::remove_pointer_t<std::remove_reference_t<decltype(app.*Member)>>;
        return app.*Member = new View;
    }
};

const std::array<MirlApplication::MainTab, 8> MirlApplication::kMainTabs = {{
    MainTab::of<&MirlApplication::mDashView>("dashboard", "[RSnnn]Dashboard"),
    MainTab::of<&MirlApplication::mSesView, false>("sessions", "[RSnnn]Sessions"),
    MainTab::of<&MirlApplication::mUsrView, false, false>("users", "[RSnnn]Users",
                                                          ChangeTracker::SECTION_USERS),
    MainTab::of<&MirlApplication::mDevView, false, false>("devices", "[RSnnn]Devices",
                                                          ChangeTracker::SECTION_DEVICES),
    MainTab::of<&MirlApplication::mCascadeView>("cascade", "main.Cascade"),
    MainTab::of<&MirlApplication::mPeriphView, false, false>("peripherals", "[RSnnn]Peripherals",
                                                             ChangeTracker::SECTION_PERIPHERALS),
    MainTab::of<&MirlApplication::mSysSettingsView, false>("settings", "[RSnnn]System Settings",
                                                           ChangeTracker::SECTION_SYSTEM_SETTINGS),
    MainTab::of<&MirlApplication::mEventView, false>("events", "[RSnnn]Events",
                                                     ChangeTracker::SECTION_EVENTS),
}};

void MirlApplication::createUi() {
    relaxRedirectCheckTimer();
    mUserLoggedIn = true;
    startSessionCheckTimer();
    mLastUserActivityMs = mLoginMs = SteadyClock_nowMs();
    readInactivityTimeout();

    std::string name;
    std::vector<std::string> errors;
    Db::db.readString("user", mLoggedInUsrIndex, "name", name, errors);
    EventLog_write(3, 7, "createUi", "%s logged in to MIRL.", name);

    mMainTable = new Wt::WTable;
    mMainTable->setStyleClass("mirl-main-container");
    mMainTabs = new Wt::WTabWidget;
    mMainTabs->setInline(false);
    mMainTabs->setStyleClass("mirl-main-tab");
    mHeader = new WStandardHeader(name);
    mHeader->setInline(false);
    mHeader->setPadding(0);

    bool fullMirlWhenManaged = false;
    if (Db::db.readEnableDisable("systemGlobals", 0, "fullMirlWhenManaged", fullMirlWhenManaged, errors) != 0)
        fullMirlWhenManaged = false;
    mController = Db::db.thisSwxIsCascadeController();
    mUiVariant = uiVariantFor(mController, Db::db.thisSwxIsManaged(), fullMirlWhenManaged);
    Db::db.readString("swx", kThisSwxIndex, "eid", mThisSwxEid, errors);
    switch (mUiVariant) {
    case UiVariant::Master:
        createMasterUi();
        break;
    case UiVariant::Managed:
        createManagedUi();
        break;
    case UiVariant::Slave:
        createSlaveUi();
        break;
    }
    Db::db.readString("systemGlobals", 0, "managedSetting", mManagedSetting, errors);
    // With the full interface the pages stay as they are through any change of mode.
    if (!fullMirlWhenManaged) startModeChangeCheckTimer();
}

void MirlApplication::placeHeaderAndTabs() {
    mMainTable->elementAt(0, 0)->addWidget(mHeader);
    mMainTable->elementAt(1, 0)->addWidget(mMainTabs);
}

void MirlApplication::placeTableAndVersion() {
    root()->addWidget(mMainTable);
    const char* version = Attributes_getString("firmware.appversion", nullptr);
    if (!version) return;
    auto* text =
        new Wt::WText(tr("[RSnnn]version") + " " + Wt::WString::fromUTF8(version), Wt::PlainText, root());
    text->setStyleClass("mirl-version-in-header");
}

void MirlApplication::createMasterUi() {
    mSlaveUiActive = false;
    placeHeaderAndTabs();
    for (const MainTab& tab : kMainTabs) {
        Wt::WMenuItem* item = mMainTabs->addTab(tab.make(*this), tr(tab.label));
        if (tab.section >= 0) mSectionTabItems[static_cast<std::size_t>(tab.section)] = item;
    }
    placeTableAndVersion();
    mMainTabs->currentChanged().connect(this, &MirlApplication::mainTabChangedHandler);
    mainTabChangedHandler();
    goToPlace(internalPath());
    internalPathChanged().connect(this, &MirlApplication::goToPlace);
}

PageFrame* MirlApplication::shownPage() const {
    return dynamic_cast<PageFrame*>(mMainTabs->widget(mMainTabs->currentIndex()));
}

/// The master variant alone has places: the others are one page.
std::string MirlApplication::place() const {
    const int index = mMainTabs->currentIndex();
    if (index < 0 || index >= static_cast<int>(kMainTabs.size())) return "/";
    const PageFrame* page = shownPage();
    return std::string("/") + kMainTabs[static_cast<std::size_t>(index)].name +
           (page ? page->placeInAddress() : "");
}

void MirlApplication::goToPlace(std::string path) {
    std::string_view rest = path;
    const std::string_view name = Place::takePart(rest);
    const auto tab =
        std::find_if(kMainTabs.begin(), kMainTabs.end(), [&](const MainTab& t) { return t.name == name; });
    if (tab == kMainTabs.end()) return;
    mMainTabs->setCurrentIndex(static_cast<int>(tab - kMainTabs.begin()));
    if (PageFrame* page = shownPage()) page->goTo(rest);
}

/// After every event: where the user is, and whether leaving would lose something.
void MirlApplication::showPlace() {
    if (!mUserLoggedIn || !mMainTabs) return;
    if (mSesView) setInternalPath(place());
    if (anythingChanged() == mAsksBeforeLeaving) return;
    mAsksBeforeLeaving = !mAsksBeforeLeaving;
    setConfirmCloseMessage(mAsksBeforeLeaving ? tr("[RSnnn]There are unsaved changes.") : Wt::WString());
}

void MirlApplication::createManagedUi() {
    placeHeaderAndTabs();
    mManagedView = new WManagedView;
    mMainTabs->addTab(mManagedView, Db::db.thisSwxIsCascadeController()
                                        ? tr("[RSnnn]Managed Master Settings")
                                        : tr("[RSnnn]Managed Slave Settings"));
    mManagedView->readFromDatabase(true);
    mManagedView->enableAutoRefresh();
    placeTableAndVersion();
}

void MirlApplication::createSlaveUi() {
    mSlaveUiActive = true;
    placeHeaderAndTabs();
    mSlaveSettingsView = new WSlaveSettingsView;
    mMainTabs->addTab(mSlaveSettingsView, tr("[RSnnn]Slave Switch Settings"));
    mSlaveSettingsView->readFromDatabase(true);
    mSlaveSettingsView->enableAutoRefresh();
    placeTableAndVersion();
}

void MirlApplication::mainTabChangedHandler() {
    for (const MainTab& tab : kMainTabs) tab.poll(*this, false);
    const int index = mMainTabs->currentIndex();
    if (index < 0 || index >= static_cast<int>(kMainTabs.size())) {
        EventLog_write(4, 7, "mainTabChangedHandler", "Unknown index %d.", index);
        return;
    }
    const MainTab& tab = kMainTabs[static_cast<std::size_t>(index)];
    tab.read(*this);
    tab.poll(*this, true);
}

void MirlApplication::dashViewEventLogClear() {
    if (mDashView) mDashView->eventLogClear();
}
