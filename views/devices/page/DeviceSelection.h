#pragma once

#include "views/devices/list/DeviceKind.h"

#include <string_view>

/// The action cells of the page, in their order.
enum class DeviceAction { RestoreFull, RestorePartial, Update, Reboot, Remove, RemoveOffline, Flash };
inline constexpr int kDeviceActionCount = 7;

/// Page of the details pane: index into its stack.
enum class DevDetailsPage { Empty, Receiver, Transmitter, Switch };

/// What decides over actions and details.
struct DeviceSelection {
    bool any = false; // at least one row
    Info_DeviceType type = Info_DeviceType::None;
    Info_DetailedDeviceType detail = Info_DetailedDeviceType::None; // None: none, or several of the type
    bool conflict = false;                                          // a Switch in conflict is among them
};

enum class Ask { Any, Yes, No };

/// One class of selections and what it enables.
struct DeviceSelectionRule {
    Ask any;
    Info_DeviceType type; // of every selection if `any` is No
    Ask oneDetail;        // all selected devices are of the same detailed type
    Ask conflict;
    std::string_view enabled; // one letter for each action: X on, . off
    DevDetailsPage page;
};

/// The first row that fits decides. Rows of Receivers and Transmitters cannot be in conflict.
inline constexpr DeviceSelectionRule kDeviceSelectionRules[] = {
    // clang-format off
    // any      type                          one       conflict   Full Part Upd Reb Rem RemOff Flash
    {Ask::No,  Info_DeviceType::None,        Ask::Any, Ask::Any,  ".....X.", DevDetailsPage::Empty},
    {Ask::Yes, Info_DeviceType::None,        Ask::Any, Ask::Yes,  "....XXX", DevDetailsPage::Empty},
    {Ask::Yes, Info_DeviceType::None,        Ask::Any, Ask::No,   "X..XXXX", DevDetailsPage::Empty},
    {Ask::Yes, Info_DeviceType::Receiver,    Ask::Yes, Ask::Any,  "X.XXXXX", DevDetailsPage::Receiver},
    {Ask::Yes, Info_DeviceType::Receiver,    Ask::No,  Ask::Any,  "X..XXXX", DevDetailsPage::Receiver},
    {Ask::Yes, Info_DeviceType::Transmitter, Ask::Yes, Ask::Any,  "X.XXXXX", DevDetailsPage::Transmitter},
    {Ask::Yes, Info_DeviceType::Transmitter, Ask::No,  Ask::Any,  "X..XXXX", DevDetailsPage::Transmitter},
    {Ask::Yes, Info_DeviceType::Switch,      Ask::Any, Ask::No,   "XXXXXXX", DevDetailsPage::Switch},
    {Ask::Yes, Info_DeviceType::Switch,      Ask::Any, Ask::Yes,  "....XXX", DevDetailsPage::Switch},
    // clang-format on
};

constexpr bool aLetterForEachAction() {
    for (const DeviceSelectionRule& rule : kDeviceSelectionRules) {
        if (rule.enabled.size() != kDeviceActionCount ||
            rule.enabled.find_first_not_of("X.") != std::string_view::npos)
            return false;
    }
    return true;
}
static_assert(aLetterForEachAction());

constexpr bool answers(Ask question, bool fact) {
    return question == Ask::Any || (question == Ask::Yes) == fact;
}

constexpr const DeviceSelectionRule& ruleOf(const DeviceSelection& selection) {
    for (const DeviceSelectionRule& rule : kDeviceSelectionRules) {
        if (answers(rule.any, selection.any) && rule.type == selection.type &&
            answers(rule.oneDetail, selection.detail != Info_DetailedDeviceType::None) &&
            answers(rule.conflict, selection.conflict))
            return rule;
    }
    return kDeviceSelectionRules[0];
}

constexpr bool enables(const DeviceSelectionRule& rule, DeviceAction action) {
    return rule.enabled[static_cast<std::size_t>(action)] == 'X';
}
