#pragma once

#include <Wt/WString>

#include <string>

/// Why a session ended without the user's doing. The next login page says it.
enum class EndReason { Inactivity, LoggedOutElsewhere, AccountChanged, SwitchRestarted, ManagedModeChanged };

/// Parameter of the start page's address that carries the reason.
constexpr char kEndReasonParameter[] = "ended";

/// Address of the start page that says the reason. `place`: address of where the user was, "" for none.
std::string EndReason_address(EndReason reason, const std::string& place);

/// The sentence for the parameter's word; empty for a word that is none: anybody can write an address.
Wt::WString EndReason_text(const std::string& word);
