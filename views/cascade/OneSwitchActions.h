#pragma once

#include "frame/ActionColumn.h"
#include "frame/RowsInOrder.h"
#include "views/cascade/OneSwitchPage.h"

/// Actions of the pages of a managed and of a slave Switch.
enum class OneSwitchAction { Reboot, Flash, Promote };

inline constexpr ActionRow<OneSwitchPage, OneSwitchAction> kOneSwitchActions[] = {
    {OneSwitchAction::Reboot, "[RSnnn]Reboot", "[RSnnn]Reboot",
     "[RSnnn]Reboot the switch you are logged in to.", &OneSwitchPage::rebootButtonClicked, Needs::Nothing,
     WhileEditing::LeftAlone, true},
    {OneSwitchAction::Flash, "[RSnnn]Flash Display", "[RSnnn]Flash",
     "[RSnnn]Flash the display backlight of the switch to help locate it.",
     &OneSwitchPage::flashButtonClicked, Needs::Nothing, WhileEditing::LeftAlone, true},
};
static_assert(rowsInOrder(kOneSwitchActions));

/// Stands below them where a Switch may take over.
inline constexpr ActionRow<OneSwitchPage, OneSwitchAction> kPromoteAction[] = {
    {OneSwitchAction::Promote, "managed.peer.cc.promote", "managed.peer.cc.promote",
     "managed.peer.cc.promote.details", &OneSwitchPage::promotePeerButtonClicked, Needs::Nothing,
     WhileEditing::LeftAlone, true},
};
