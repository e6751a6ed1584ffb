#pragma once

#include <Wt/WEvent.h>
#include <Wt/WPushButton>
#include <Wt/WTable>

/// Body of an accordion section: the button of one action, and what it does in a sentence.
class WNavAccordionStdCell : public Wt::WTable {
public:
    WNavAccordionStdCell(const Wt::WString& actionLabel, const Wt::WString& help,
                         Wt::WContainerWidget* parent = nullptr);

    void enableActionButton() { mActionButton->enable(); }
    void disableActionButton() { mActionButton->disable(); }
    /// The button opens the link instead of calling a handler.
    void linkSet(const Wt::WLink& link) { mActionButton->setLink(link); }

    /// A click calls the member of the view, which must live as long as this.
    template <class View, class Base>
    void connectAction(View* view, void (Base::*handler)()) {
        mActionButton->clicked().connect(view, handler);
    }

    Wt::WPushButton* actionButton() const { return mActionButton; }

private:
    Wt::WPushButton* mActionButton;
};
