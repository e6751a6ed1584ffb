// What a settings file holds, in the order in which it takes effect.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"

namespace zeqd {

enum class Merging {
    Settings, ///< the one record takes over what clients may write
    ByName,   ///< the table becomes that of the file; a record that was there under this name keeps its index
    ByEid,    ///< records with the same EID take over what clients may write
};
struct SettingsPart {
    Res id;
    Merging merging;
};
inline constexpr SettingsPart kSettingsParts[] = {
    {Res::SystemGlobals, Merging::Settings},
    {Res::CfgDefaults, Merging::Settings},
    {Res::EventLogControl, Merging::Settings},
    {Res::AlertLogControl, Merging::Settings},
    {Res::User, Merging::ByName},
    {Res::Edid, Merging::ByName},
    {Res::Swx, Merging::ByEid},
    {Res::Rx, Merging::ByEid},
    {Res::Tx, Merging::ByEid},
};

inline constexpr std::string_view kSettingsFormat = "zeq-settings";
inline constexpr int kSettingsVersion = 2;
inline constexpr const char* kTargetsKey = "targets";
inline constexpr const char* kFavoritesKey = "favorites";

} // namespace zeqd
