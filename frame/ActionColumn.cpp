#include "frame/ActionColumn.h"

namespace {

// Pixels.
constexpr int kWidth = 160;
constexpr int kMinWidth = 148;
constexpr int kMaxWidth = 380;

} // namespace

ActionColumn::ActionColumn() {
    resize(kWidth, Wt::WLength::Auto);
    setMinimumSize(kMinWidth, Wt::WLength::Auto);
    setMaximumSize(kMaxWidth, Wt::WLength::Auto);
}

WNavAccordionStdCell* ActionColumn::addAction(const char* title, const char* button, const char* hint,
                                              Needs needs, WhileEditing whileEditing, bool enabledAtFirst) {
    auto* cell = new WNavAccordionStdCell(tr(button), tr(hint));
    mActions.push_back({cell, needs, whileEditing});
    enable(mActions.size() - 1, enabledAtFirst);
    sectionAdd(tr(title), cell);
    return cell;
}

void ActionColumn::enable(std::size_t action, bool enabled, const char* why) {
    if (!why) why = mActions[action].needs == Needs::OneRecord ? "page.needs.one" : "page.needs.records";
    cell(action)->actionButton()->setToolTip(enabled ? Wt::WString() : tr(why));
    if (enabled)
        cell(action)->enableActionButton();
    else
        cell(action)->disableActionButton();
}

void ActionColumn::enableFor(std::size_t selectedRecords) {
    for (std::size_t i = 0; i < mActions.size(); ++i) {
        switch (mActions[i].needs) {
        case Needs::Nothing:
            enable(i, true);
            break;
        case Needs::Records:
            enable(i, selectedRecords > 0);
            break;
        case Needs::OneRecord:
            enable(i, selectedRecords == 1);
            break;
        case Needs::Page:
            break;
        }
    }
}

void ActionColumn::disableForEdits() {
    for (std::size_t i = 0; i < mActions.size(); ++i) {
        if (mActions[i].whileEditing == WhileEditing::Disabled) enable(i, false, "page.locked");
    }
}
