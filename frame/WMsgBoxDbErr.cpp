#include "frame/WMsgBoxDbErr.h"

#include "db/MirlUtil.h"
#include "frame/MsgBoxParts.h"
#include "frame/WDialogHeading.h"

#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

constexpr const char* kFirstLines[] = {
    "[RSnnn]Error reading value(s).",     "[RSnnn]Error writing value(s).",
    "[RSnnn]Error creating record(s).",   "[RSnnn]Error deleting record(s).",
    "[RSnnn]Error performing operation.",
};

} // namespace

WMsgBoxDbErr::WMsgBoxDbErr(AccessType type, const std::vector<std::string>& errors) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    auto* frame = new Wt::WTable(contents());
    frame->setWidth(Wt::WLength(100, Wt::WLength::Percentage)); // the button stands at the box's right edge
    frame->elementAt(0, 0)->addWidget(
        new WDialogHeading(*this, "event-severity-error.png", tr("[RSnnn]Error")));

    std::string text = tr(kFirstLines[type >= Read && type < Operation ? type : Operation]).toUTF8();
    MirlUtil_concatErrMsgs(text, errors);
    frame->elementAt(1, 0)->addWidget(newMsgBoxText(Wt::WString::fromUTF8(text)));

    Wt::WTableCell* buttonCell = frame->elementAt(2, 0);
    buttonCell->setContentAlignment(Wt::AlignRight | Wt::AlignMiddle);
    buttonCell->setStyleClass("mirl-dialog-buttons");
    auto* button = newMsgBoxButton(tr("[RSnnn]Close"), buttonCell);
    button->clicked().connect(this, &WMsgBoxDbErr::buttonClickedHandler);
    button->setFocus();
}

WMsgBoxDbErr::~WMsgBoxDbErr() = default;

void WMsgBoxDbErr::buttonClickedHandler() {
    accept();
}
