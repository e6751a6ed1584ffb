#pragma once

#include <Wt/WCompositeWidget.h>
#include <Wt/WSignal.h>

#include <memory>

namespace Wt {

class WInteractWidget;
class WText;

/// A window over the page. Modal (the default): nothing below it takes events, and the focus stays inside;
/// when it closes, the focus returns to where it was.
class WDialog : public WCompositeWidget {
public:
    enum DialogCode { Rejected, Accepted };

    explicit WDialog(WObject* parent = nullptr);
    explicit WDialog(const WString& windowTitle, WObject* parent = nullptr);
    ~WDialog() override;

    void setWindowTitle(const WString& windowTitle);
    void setTitleBarEnabled(bool enabled);
    void setModal(bool modal);
    void setResizable(bool resizable);
    void setClosable(bool closable);
    void setMovable(bool movable);
    void rejectWhenEscapePressed(bool enable = true);
    void raiseToFront();
    void setHidden(bool hidden, const WAnimation& animation = WAnimation()) override;
    bool isVisible() const override { return !isHidden(); }
    bool isEnabled() const override { return !isDisabled(); }

    /// Shows the dialog and handles events until done() was called; timers and other events of the
    /// session go on. Made for dialogs on the stack.
    /// When the session ends meanwhile, an exception of the toolkit passes through.
    DialogCode exec(const WAnimation& animation = WAnimation());
    virtual void done(DialogCode result);
    virtual void accept() { done(Accepted); }
    virtual void reject() { done(Rejected); }

    WString windowTitle() const;
    bool isTitleBarEnabled() const;
    WContainerWidget* titleBar() const { return mTitleBar; }
    WContainerWidget* contents() const { return mContents; }
    /// Below the contents; made on first use.
    WContainerWidget* footer() const;
    DialogCode result() const { return mResult; }
    bool isModal() const { return mModal; }
    bool isResizable() const { return mResizable; }
    bool isMovable() const { return mMovable; }
    bool closable() const { return mClosable; }

    Signal<DialogCode>& finished() { return mFinished; }

private:
    class Frame;
    class Layer;
    struct Waiting;

    void frameChanged();

    Frame* mFrame;                 // the implementation
    std::unique_ptr<Layer> mLayer; // covers the page below a modal dialog
    WContainerWidget* mTitleBar;
    WText* mCaption;
    WContainerWidget* mContents;
    WInteractWidget* mClose = nullptr; // made when the dialog becomes closable
    mutable WContainerWidget* mFooter = nullptr;
    Signal<DialogCode> mFinished{this};
    DialogCode mResult = Rejected;
    bool mModal = true, mResizable = false, mMovable = true, mClosable = false, mEscape = false;
    std::shared_ptr<Waiting> mWaiting; // while in exec()
};

} // namespace Wt
