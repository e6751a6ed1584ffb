#include "frame/WMsgBoxDbErr.h"

#include "db/MirlUtil.h"
#include "frame/MsgBoxParts.h"
#include "frame/RowsInOrder.h"
#include "frame/WDialogHeading.h"

#include <Wt/WPushButton>
#include <Wt/WTable>
#include <Wt/WTableCell>
#include <Wt/WText>

namespace {

struct FirstLine {
    WMsgBoxDbErr::AccessType value;
    const char* textKey;
};

constexpr FirstLine kFirstLines[] = {
    {WMsgBoxDbErr::Read, "[RSnnn]Error reading value(s)."},
    {WMsgBoxDbErr::Write, "[RSnnn]Error writing value(s)."},
    {WMsgBoxDbErr::Create, "[RSnnn]Error creating record(s)."},
    {WMsgBoxDbErr::Delete, "[RSnnn]Error deleting record(s)."},
    {WMsgBoxDbErr::Operation, "[RSnnn]Error performing operation."},
};
static_assert(rowsInOrder(kFirstLines));

} // namespace

WMsgBoxDbErr::WMsgBoxDbErr(AccessType type, const std::vector<std::string>& errors) {
    rejectWhenEscapePressed();
    contents()->setPadding(kMsgBoxPaddingPx);
    auto* frame = new Wt::WTable(contents());
    frame->setWidth(Wt::WLength(100, Wt::WLength::Percentage)); // the button stands at the box's right edge
    frame->elementAt(0, 0)->addWidget(
        new WDialogHeading(*this, "event-severity-error.png", tr("[RSnnn]Error")));

    std::string text = tr(kFirstLines[type >= Read && type < Operation ? type : Operation].textKey).toUTF8();
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
