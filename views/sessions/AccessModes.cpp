#include "views/sessions/AccessModes.h"

std::optional<Info_AccessMode> accessModeNamed(const std::string& databaseValue) {
    if (databaseValue == "share_mode") return Info_AccessMode::Share;
    if (databaseValue == "private_mode") return Info_AccessMode::Private;
    if (databaseValue == "share_or_private_mode") return Info_AccessMode::ShareOrPrivate;
    return std::nullopt;
}
