#include "frame/WMsgBoxSimple.h"

#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

/// The text that a key stands for now: the box keeps its words whatever becomes of the bundle.
Wt::WString resolved(const Wt::WString& text) {
    return Wt::WString::fromUTF8(text.toUTF8());
}

} // namespace

WMsgBoxSimple::WMsgBoxSimple(MsgType type, const Wt::WString& title, const Wt::WString& text,
                             const Wt::WString& button1Text, const Wt::WString& button2Text) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    auto* frame = new Wt::WTable(contents());
    frame->elementAt(0, 0)->addWidget(new WDialogHeading(*this, msgBoxImage(type), resolved(title)));
    frame->elementAt(1, 0)->addWidget(newMsgBoxText(resolved(text)));

    Wt::WTableCell* buttonCell = frame->elementAt(2, 0);
    buttonCell->setContentAlignment(Wt::AlignRight | Wt::AlignMiddle);
    auto* buttons = new Wt::WTable(buttonCell);
    buttons->addStyleClass("mirl-dialog-buttons");
    button1 = newMsgBoxButton(resolved(button1Text), buttons->elementAt(0, 1));
    if (!button2Text.empty()) button2 = newMsgBoxButton(resolved(button2Text), buttons->elementAt(0, 0));
}

WMsgBoxSimple::~WMsgBoxSimple() = default;
