#include "frame/WCollapsingContextPanel.h"

#include "frame/WContextPanel.h"
#include "shell/MirlPath.h"

#include <Wt/WIconPair>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>
#include <Wt/WVBoxLayout>

namespace {

constexpr int kFoldHeight = 90;    // pixels; a lower panel folds
constexpr int kFoldDuration = 300; // milliseconds

} // namespace

WCollapsingContextPanelTitleBar::WCollapsingContextPanelTitleBar(const Wt::WString& title,
                                                                 Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent) {
    setHeight(Wt::WLength(kTitleBarHeight));
    auto* table = new Wt::WTable(this);
    table->setHeight(Wt::WLength(kTitleBarHeight));
    mStateButton = new Wt::WIconPair(MirlPath_themeBase() + "context-panel-button-expanded-idle.png",
                                     MirlPath_themeBase() + "context-panel-button-collapsed-idle.png", false);
    table->elementAt(0, 0)->addWidget(mStateButton);
    table->elementAt(0, 0)->setContentAlignment(Wt::AlignMiddle);
    table->elementAt(0, 1)->setContentAlignment(Wt::AlignMiddle);
    new Wt::WText(title, Wt::PlainText, table->elementAt(0, 1));
    mSubject = new Wt::WText(table->elementAt(0, 2));
    mSubject->setTextFormat(Wt::PlainText);
    mSubject->setStyleClass("mirl-panel-subject");
    table->elementAt(0, 2)->setContentAlignment(Wt::AlignMiddle);

    setTabIndex(0);
    setAttributeValue("role", "button");
    setAttributeValue("aria-expanded", "true");
}

void WCollapsingContextPanelTitleBar::stateButtonSet(unsigned int state) {
    mStateButton->setState(static_cast<int>(state));
    setAttributeValue("aria-expanded", state == 0 ? "true" : "false");
}

void WCollapsingContextPanelTitleBar::subjectSet(const Wt::WString& subject) {
    mSubject->setText(subject);
}

WCollapsingContextPanel::WCollapsingContextPanel(const Wt::WString& title, HeightType heightType, int height,
                                                 Wt::WContainerWidget* parent)
    : Wt::WContainerWidget(parent), mAnimation(Wt::WAnimation::Fade, Wt::WAnimation::Linear),
      mHeightType(heightType), mInitialHeight(height), mCurrentHeight(height) {
    auto* layout = new Wt::WVBoxLayout;
    layout->setContentsMargins(0, 0, 0, 0);
    mAnimation.setDuration(kFoldDuration);
    setHeight(Wt::WLength(height));
    setLayoutSizeAware(heightType == ResizableHeight);
    setLayout(layout);
    mTitleBar = new WCollapsingContextPanelTitleBar(title);
    mTitleBar->setInline(false);
    mTitleBar->setPadding(Wt::WLength(0));
    layout->addWidget(mTitleBar);
    mTitleBar->mouseWentUp().connect(this, &WCollapsingContextPanel::titleButtonClicked);
    mTitleBar->enterPressed().connect(this, &WCollapsingContextPanel::titleButtonClicked);
    mTitleBar->setStyleClass("mirl-context-panel-title-button-collapsing");
    setStyleClass("mirl-context-panel");
}

void WCollapsingContextPanel::setContent(Wt::WWidget* content, int stretch,
                                         Wt::WFlags<Wt::AlignmentFlag> alignment) {
    mContent = content;
    content->setInline(false);
    static_cast<Wt::WBoxLayout*>(layout())->addWidget(content, stretch, alignment);
}

void WCollapsingContextPanel::hideContent() {
    mContentHidden = true;
    if (mContent) mContent->hide();
}

void WCollapsingContextPanel::showContent() {
    mContentHidden = false;
    if (mContent) mContent->show();
}

void WCollapsingContextPanel::titleButtonClicked() {
    mToggled = true;
    if (mCollapsed)
        unfold(mHeightType == ResizableHeight ? mCurrentHeight : mInitialHeight);
    else
        fold();
}

void WCollapsingContextPanel::fold() {
    mTitleBar->stateButtonSet(1);
    if (mContent) mContent->animateHide(mAnimation);
    setHeight(Wt::WLength(kTitleBarHeight));
    mCollapsed = true;
    mFoldedSignal.emit(true);
}

void WCollapsingContextPanel::unfold(int height) {
    mTitleBar->stateButtonSet(0);
    if (mContent && !mContentHidden) mContent->animateShow(mAnimation);
    setHeight(Wt::WLength(height));
    mCollapsed = false;
    mFoldedSignal.emit(false);
}

void WCollapsingContextPanel::layoutSizeChanged(int /*width*/, int height) {
    if (mHeightType != ResizableHeight) return;
    const bool before = mToggled && mCollapsed != (height < kFoldHeight);
    mToggled = false;
    if (before) return; // measured before the title was clicked
    if (mCollapsed) {
        if (height < kFoldHeight) return;
        unfold(height);
        mCurrentHeight = height; // the same size is not reported again
        return;
    }
    if (height < kFoldHeight) {
        fold();
        return;
    }
    setLayoutSizeAware(false);
    setHeight(Wt::WLength(height));
    setLayoutSizeAware(true);
    mCurrentHeight = height;
}
