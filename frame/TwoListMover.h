#pragma once

#include "frame/MoverList.h"
#include "frame/MoverRules.h"

#include <Wt/WContainerWidget>
#include <Wt/WSignal>

#include <span>
#include <vector>

namespace Wt {
class WPushButton;
}

/// A button between the lists, from the top.
struct MoverButton {
    Move move;
    const char* label; // message key
};

/// Two lists side by side, with buttons between them that move entries from one to the other. At most one of
/// the two has selected rows. Nothing is stored: a move changes the page's model, which then shows anew.
///
///     constexpr MoverButton kButtons[] = {{Move::AddAll, kAddAllLabel}, {Move::Add, kAddLabel}, ...};
///     mMover = new TwoListMover(mModel, new MoverList({kAvailableHeader}), new MoverList({kAllowedHeader}),
///                               kButtons);
///     mMover->moved().connect(this, &WUsrViewTargets::targetsMoved); // marks the tab as changed
class TwoListMover : public Wt::WContainerWidget {
public:
    /// What the page keeps about the entries.
    class Model {
    public:
        virtual ~Model() = default;
        /// `indexes` of the selected rows, in the list's order; empty for AddAll and RemoveAll. Up and Down
        /// come only for an entry that has one above or below it.
        virtual void move(Move move, const std::vector<unsigned>& indexes) = 0;
        /// Gives both lists their items.
        virtual void show(MoverList& left, MoverList& right) = 0;
    };

    /// Takes the lists over; the model must outlive it. rightLimit: rows that the right list may hold, 0: any
    /// number. Empty until the first refresh().
    TwoListMover(Model& model, MoverList* left, MoverList* right, std::span<const MoverButton> buttons,
                 int rightLimit = 0, Wt::WContainerWidget* parent = nullptr);

    /// Shows what the model holds now.
    void refresh();
    /// What the button does; nothing if the button would be disabled.
    void apply(Move move);
    /// Not usable: lists and buttons are disabled and nothing is selected.
    void setUsable(bool usable);

    void clearSelection();
    /// While a row is selected the user is about to move it: what came meanwhile is to wait.
    bool hasSelection() const;

    MoverList* left() const { return mLeft; }
    MoverList* right() const { return mRight; }
    Wt::WPushButton* button(Move move) const; // null if there is none

    /// The user has moved something; model and lists know it already.
    Wt::Signal<>& moved() { return mMoved; }

private:
    struct Button {
        Move move;
        Wt::WPushButton* widget;
    };

    void selectionChanged(MoverList* list);
    void enableButtons();
    MoverState state() const;

    Model& mModel;
    MoverList* mLeft;
    MoverList* mRight;
    std::vector<Button> mButtons;
    int mRightLimit;
    bool mUsable = true;
    Wt::Signal<> mMoved;
};
