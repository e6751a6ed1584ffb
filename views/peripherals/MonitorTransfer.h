#pragma once

#include "frame/DialogForm.h"

namespace Wt {
class WCheckBox;
class WStackedWidget;
} // namespace Wt

class RecordTable;

/// Moves monitors between the library and devices: a list of devices to choose from, the button that goes on, once,
/// and what became of it in the list's place. It can be left at any time, also while it works.
class MonitorTransfer : public DialogForm {
public:
    enum Button { None, Go, Cancel = 5 }; // buttonClicked()

    virtual void cancelButtonClickedHandler();
    virtual void goButtonClickedHandler();

    RecordTable* list() const { return mList; }

protected:
    /// `list` in pixels, owned by this.
    MonitorTransfer(const DialogFormHead& head, RecordTable* list, int width, int height, const char* goKey);

    /// What Go does; called with a selection, and not again before it returns. It calls begin() when it really begins.
    virtual void transfer() = 0;

    /// From here on nothing can be begun any more.
    void begin();
    /// The user has left, or the session ends: what is not begun is not done.
    bool isLeft() const;

    /// Beside the list; showInstead() brings it in front.
    template <class Widget>
    Widget* addPage(Widget* widget) {
        addToStack(widget);
        return widget;
    }
    void showInstead(Wt::WWidget* page);

    /// The end: Cancel becomes Close. A success closes the dialog if the user wanted that; true: it did.
    bool end(const Wt::WString& title);
    void endWithFailure(const Wt::WString& title, Wt::WWidget* page);

    Wt::WStackedWidget* stack() const { return mStack; }

private:
    void addToStack(Wt::WWidget* widget);
    void selectionChangedHandler();

    RecordTable* mList;
    Wt::WStackedWidget* mStack;
    Wt::WCheckBox* mCloseWhenDone;
    Wt::WPushButton* mCancel;
    Wt::WPushButton* mGo;
    bool mBusy = false;  // in transfer()
    bool mBegun = false; // for good
    bool mLeft = false;
};
