#pragma once

#include "frame/WNavAccordion.h"
#include "frame/WNavAccordionStdCell.h"

#include <cstddef>
#include <vector>

/// What an action needs to be enabled.
enum class Needs {
    Nothing,   // always
    Records,   // at least one selected
    OneRecord, // exactly one selected
    Page       // the page decides, by enable()
};

/// What becomes of an action while a tab of the page has unsaved edits.
enum class WhileEditing { Disabled, LeftAlone };

/// One action of a page. Rows stand in the order of the enumeration `Action`; keys are of the message bundle.
///
///     constexpr ActionRow<WDevView, DeviceAction> kActions[] = {
///         {DeviceAction::Reboot, "[RSnnn]Reboot Device", "[RSnnn]Reboot",
///          "[RSnnn]Reboot one or more selected devices.", &WDevView::rebootDevActionButtonClicked, Needs::Records},
///     static_assert(rowsInOrder(kActions));
template <class View, class Action>
struct ActionRow {
    Action value;
    const char* title;
    const char* button;
    const char* hint;
    void (View::*handler)(); // null: the page gives the button a link
    Needs needs = Needs::Page;
    WhileEditing whileEditing = WhileEditing::Disabled;
    bool enabledAtFirst = false;
};

/// The column of actions at the left of a page: a foldable section for each row.
class ActionColumn : public WNavAccordion {
public:
    ActionColumn();

    /// Adds a section for each row, whose button calls the row's handler. The view must live as long as
    /// this; rows are constants.
    template <class View, class Row, std::size_t N>
    void addActions(View* view, const Row (&rows)[N]) {
        for (const Row& row : rows) {
            WNavAccordionStdCell* cell =
                addAction(row.title, row.button, row.hint, row.needs, row.whileEditing, row.enabledAtFirst);
            if (row.handler) cell->connectAction(view, row.handler);
        }
    }

    WNavAccordionStdCell* cell(std::size_t action) const { return mActions[action].cell; }
    /// `why`: message key of what a disabled action needs, told by its tooltip; null = what its row says it needs.
    void enable(std::size_t action, bool enabled, const char* why = nullptr);

    /// Enables or disables the actions whose needs tell it.
    void enableFor(std::size_t selectedRecords);
    void disableForEdits();

private:
    struct Action {
        WNavAccordionStdCell* cell; // owned by its section
        Needs needs;
        WhileEditing whileEditing;
    };

    WNavAccordionStdCell* addAction(const char* title, const char* button, const char* hint, Needs needs,
                                    WhileEditing whileEditing, bool enabledAtFirst);

    std::vector<Action> mActions;
};
