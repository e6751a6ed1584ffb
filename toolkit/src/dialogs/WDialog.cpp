#include <Wt/WDialog.h>

#include "web/ElementSpec.h"
#include "web/PageNode.h"
#include "web/WebSession.h"

#include <Wt/WContainerWidget.h>
#include <Wt/WPushButton.h>
#include <Wt/WText.h>

#include <stdexcept>
#include <utility>

namespace Wt {

using Impl::WebSession;

/// The box of the dialog.
class WDialog::Frame : public WContainerWidget {
public:
    explicit Frame(WDialog& dialog) : mDialog(dialog) { setStyleClass("Wt-dialog"); }

    void describe(Impl::ElementSpec& spec) override {
        WContainerWidget::describe(spec);
        spec.attribute("role", "dialog");
        if (mDialog.mModal) spec.attribute("aria-modal", "true");
        spec.attribute("tabindex", "-1");
        if (mDialog.isTitleBarEnabled())
            spec.attribute("aria-labelledby", mDialog.mCaption->id());
        else if (const std::string title = mDialog.windowTitle().toUTF8(); !title.empty())
            spec.attribute("aria-label", title);
        std::string config = mDialog.mModal ? "{\"modal\":true" : "{\"modal\":false";
        if (mDialog.mMovable) config += ",\"movable\":true";
        spec.behaviour("dialog", config + "}");
        if (mDialog.mResizable) spec.styleClass("Wt-resizable");
        spec.listen(mDialog.mEscape ? "escape" : "none");
    }

    void browserEvent(std::string_view kind, const boost::json::object& event) override {
        if (kind == "escape" && mDialog.mEscape)
            mDialog.reject();
        else
            WContainerWidget::browserEvent(kind, event);
    }

    bool needsKeyboardStop() const override { return false; }

private:
    WDialog& mDialog;
};

class WDialog::Layer : public Impl::RenderNode {
public:
    Layer(const WDialog& dialog, RenderNode& frame) : mDialog(dialog), mFrame(frame) {
        frame.setNodeParent(this);
    }

    void describe(Impl::ElementSpec& spec) override {
        spec.tag("div");
        spec.styleClass(mDialog.mModal ? "Wt-layer Wt-modal" : "Wt-layer");
    }
    void childNodes(std::vector<RenderNode*>& children) override { children.push_back(&mFrame); }

private:
    const WDialog& mDialog;
    RenderNode& mFrame;
};

/// What exec() waits for. It outlives the dialog, which a handler may delete meanwhile.
struct WDialog::Waiting {
    bool waiting = true;
    DialogCode result = Rejected;
};

WDialog::WDialog(WObject* parent) : WDialog(WString(), parent) {}

WDialog::WDialog(const WString& windowTitle, WObject* parent)
    : WCompositeWidget(nullptr), mFrame(new Frame(*this)) {
    mTitleBar = new WContainerWidget(mFrame);
    mTitleBar->setStyleClass("titlebar");
    mCaption = new WText(windowTitle, mTitleBar);
    mContents = new WContainerWidget(mFrame);
    mContents->setStyleClass("body");
    setImplementation(mFrame);
    mLayer = std::make_unique<Layer>(*this, *mFrame);
    mFrame->setHidden(true);
    if (parent) parent->addChild(this);
}

WDialog::~WDialog() {
    if (mWaiting) mWaiting->waiting = false;
    if (WebSession* session = WebSession::current()) session->page().removeLayer(*mLayer);
    static_cast<Impl::RenderNode*>(mFrame)->setNodeParent(nullptr);
}

void WDialog::frameChanged() {
    mFrame->nodeChanged();
    mLayer->nodeChanged();
}

void WDialog::setWindowTitle(const WString& windowTitle) {
    mCaption->setText(windowTitle);
    mFrame->nodeChanged();
}

WString WDialog::windowTitle() const {
    return mCaption->text();
}

void WDialog::setTitleBarEnabled(bool enabled) {
    mTitleBar->setHidden(!enabled);
    mFrame->nodeChanged();
}

bool WDialog::isTitleBarEnabled() const {
    return !mTitleBar->isHidden();
}

void WDialog::setModal(bool modal) {
    mModal = modal;
    frameChanged();
}

void WDialog::setResizable(bool resizable) {
    mResizable = resizable;
    frameChanged();
}

void WDialog::setMovable(bool movable) {
    mMovable = movable;
    frameChanged();
}

void WDialog::setClosable(bool closable) {
    if (closable == mClosable) return;
    mClosable = closable;
    if (!closable) {
        delete mClose;
        mClose = nullptr;
        return;
    }
    auto* button = new WPushButton("\u00D7", mTitleBar);
    button->setStyleClass("closeicon");
    button->setAttributeValue("aria-label", "Close");
    button->clicked().connect(this, &WDialog::reject);
    mClose = button;
}

void WDialog::rejectWhenEscapePressed(bool enable) {
    mEscape = enable;
    frameChanged();
}

void WDialog::raiseToFront() {
    WebSession* session = WebSession::current();
    if (!session || isHidden()) return;
    session->page().addLayer(*mLayer);
    if (mModal) session->page().pushModal(*mLayer);
}

WContainerWidget* WDialog::footer() const {
    if (!mFooter) {
        mFooter = new WContainerWidget(mFrame);
        mFooter->setStyleClass("footer");
    }
    return mFooter;
}

void WDialog::setHidden(bool hidden, const WAnimation& animation) {
    WebSession* session = WebSession::current();
    if (hidden != isHidden() && session) {
        if (hidden)
            session->page().removeLayer(*mLayer);
        else {
            session->page().addLayer(*mLayer);
            if (mModal) session->page().pushModal(*mLayer);
        }
    }
    WCompositeWidget::setHidden(hidden, animation);
}

WDialog::DialogCode WDialog::exec(const WAnimation& animation) {
    WebSession* session = WebSession::current();
    if (!session) throw std::logic_error("WDialog::exec(): there is no session");
    if (mWaiting) throw std::logic_error("WDialog::exec(): is being executed already");
    const auto state = std::make_shared<Waiting>();
    mWaiting = state;
    struct Leave {
        WDialog* dialog;
        Waiting& state;
        ~Leave() {
            // Still waiting: an exception passes, and the dialog is there.
            if (state.waiting) dialog->mWaiting.reset();
        }
    } leave{this, *state};
    setHidden(false, animation);
    if (session->dialogExecuted) {
        session->dialogExecuted(this);
        if (state->waiting) throw std::logic_error("WDialog::exec(): nobody ended the dialog");
    }
    while (state->waiting) session->waitForEvent();
    return state->result;
}

// Handlers of finished() may delete the dialog.
void WDialog::done(DialogCode result) {
    if (isHidden() && !mWaiting) return;
    mResult = result;
    if (const auto state = std::exchange(mWaiting, nullptr)) {
        state->result = result;
        state->waiting = false;
    }
    setHidden(true);
    mFinished.emit(result);
}

} // namespace Wt
