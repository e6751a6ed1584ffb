#pragma once

#include "shell/EndReason.h"

#include <string>
#include <vector>

/// Logins at this interface and at Receivers, as requests to the internal database service. All return 0 for
/// success and 1 for failure; what the service refused is appended to errors in the user's words and logged.

/// An admin session of this interface, as the login's answer told it.
struct MirlSession {
    unsigned index = 0; // of its record; 0 = none
    std::string username;
    std::string resumeKey; // makes it again after the service was away; empty = cannot be
};

/// Opens an admin session. usrIndex and passwordIsInitialized are meaningful after success only;
/// passwordIsInitialized false means that the user has yet to set a first password.
/// A lost service reads as a refusal.
int Security_loginMirlUser(const char* username, const char* password, unsigned int& usrIndex,
                           bool& passwordIsInitialized, MirlSession& session);

/// Ends this admin session and no other of the user. One that is gone is a success.
int Security_logoutMirlUser(unsigned int usrIndex, const MirlSession& session,
                            std::vector<std::string>& errors);

/// Whether the session still stands: None, or why it ended. One that is gone with the service, or with the
/// connection to it, is made again if the account still allows it. No answer is no end.
EndReason Security_checkMirlSession(MirlSession& session);

/// Sets an administrator's first password.
int Security_setPassword(const char* username, const char* password);

int Security_loginRxUser(unsigned int usrIndex, unsigned int rxIndex, std::vector<std::string>& errors);
int Security_logoutUserByRxIndex(unsigned int rxIndex, std::vector<std::string>& errors);

/// Ends all Receiver logins of a user; one that cannot be ended makes the result 1 and does not
/// keep the others.
int Security_logoutUserByUserIndex(unsigned int usrIndex, std::vector<std::string>& errors);
