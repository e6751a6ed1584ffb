#include "widgets/WSettingsTab.h"

#include "db/HeldRecords.h"
#include "widgets/WSettingsTable.h"

#include <Wt/WHBoxLayout>
#include <Wt/WPushButton>
#include <Wt/WText>
#include <Wt/WVBoxLayout>

#include <algorithm>

namespace {

constexpr int kSpacing = 10; // pixels

} // namespace

WSettingsTab::WSettingsTab(Wt::WContainerWidget* parent, ChangeTracker::SubsectionId id,
                           std::initializer_list<InfoMgr_InfoID> watched)
    : WSettingsTabBase(parent, id), mWatched(watched), mComparedWith(watched),
      mVBoxLayout(new Wt::WVBoxLayout), mHBoxLayout(new Wt::WHBoxLayout),
      mCancelButton(new Wt::WPushButton(tr("[RSnnn]Cancel"))),
      mSaveButton(new Wt::WPushButton(tr("[RSnnn]Save"))), mSentence(new Wt::WText) {
    enableButtons(false, false);
    mSentence->setTextFormat(Wt::PlainText);
    mSentence->setStyleClass("mirl-tab-sentence");
    mSentence->setAttributeValue("role", "status"); // read out when it changes, without a move of the focus
    mHBoxLayout->addWidget(mCancelButton);
    mHBoxLayout->addWidget(mSaveButton);
    mHBoxLayout->addWidget(mSentence, 1, Wt::AlignMiddle);
    mVBoxLayout->setSpacing(kSpacing);
}

void WSettingsTab::setTables(std::initializer_list<WSettingsTable*> tables) {
    auto* sideBySide = new Wt::WHBoxLayout;
    sideBySide->setSpacing(kSpacing);
    for (WSettingsTable* table : tables) {
        sideBySide->addWidget(table, 0, Wt::AlignTop);
        table->contentChanged().connect(mContentChangedSignal);
        table->enterPressed().connect(this, &WSettingsTab::enterHandler);
    }
    sideBySide->addStretch(1);
    mTables = tables;
    setContent(sideBySide);
}

void WSettingsTab::enterHandler() {
    if (mSaveButton->isEnabled()) mSaveButton->clicked().emit(Wt::WMouseEvent());
}

void WSettingsTab::say(const Wt::WString& sentence) {
    mSentence->setText(sentence);
}

void WSettingsTab::keepFocus() {
    if (!anyWidgetHasFocus()) focusLabel();
}

void WSettingsTab::addBelowTables(Wt::WWidget* widget) {
    mVBoxLayout->insertWidget(1, widget);
}

void WSettingsTab::setContent(Wt::WLayout* content) {
    mVBoxLayout->addLayout(content);
    mVBoxLayout->addLayout(mHBoxLayout);
    mVBoxLayout->addStretch(1);
    setLayout(mVBoxLayout);
}

void WSettingsTab::readFromDatabase(bool ignoreChangeStatus, const std::vector<unsigned>& indexes,
                                    bool force) {
    if (indexes != mShown) say(Wt::WString());
    if (anyWidgetHasFocus()) {
        for (WSettingsTable* table : mTables) table->keepMarksOf(indexes);
        return;
    }
    HeldRecords held;
    const HeldRecords::Use use(held);
    const bool wanted = ignoreChangeStatus || force || indexes != mShown || mReadFailed;
    if (!wanted && !mWatched.haveNews()) return;
    mShown = indexes;
    readTables(indexes, force);
    mReadFailed = held.failed();
}

void WSettingsTab::readTables(const std::vector<unsigned>& indexes, bool force) {
    for (WSettingsTable* table : mTables) table->readFromDatabase(indexes, force);
}

void WSettingsTab::tellWhatChanged(const std::vector<unsigned>& indexes) {
    if (mTables.empty() || !mComparedWith.haveNews()) return;
    for (WSettingsTable* table : mTables)
        table->compareWithStored(indexes, WSettingsTable::Tell::WhatChanged);
}

void WSettingsTab::tellWhatIsStored(const std::vector<unsigned>& indexes) {
    for (WSettingsTable* table : mTables) table->compareWithStored(indexes, WSettingsTable::Tell::Everything);
}

unsigned WSettingsTab::writeToDatabase(const std::vector<unsigned>& indexes,
                                       std::vector<std::string>& errors) {
    unsigned result = 0;
    for (WSettingsTable* table : mTables)
        if (table->writeToDatabase(indexes, errors) != 0) result = 1;
    return result;
}

void WSettingsTab::enableButtons(bool save, bool cancel) {
    mSaveButton->setEnabled(save);
    mCancelButton->setEnabled(cancel);
}

bool WSettingsTab::isAllValid() {
    return std::all_of(mTables.begin(), mTables.end(),
                       [](WSettingsTable* table) { return table->isAllValid(); });
}

bool WSettingsTab::isAnyValid() {
    return std::any_of(mTables.begin(), mTables.end(),
                       [](WSettingsTable* table) { return table->isAnyValid(); });
}

bool WSettingsTab::anyWidgetHasFocus() const {
    return std::any_of(mTables.begin(), mTables.end(),
                       [](const WSettingsTable* table) { return table->anyWidgetHasFocus(); });
}
