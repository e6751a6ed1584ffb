#pragma once

#include <string>

/// Paths that depend on the brand of the Switch. The brand cannot change while the process runs: each result
/// is made once. All end in "/" unless they name a file.

/// One brand the product is sold under: its folder of style sheet and images below the document root, and the
/// words of the page title.
struct MirlBrand {
    const char* name;     // lower case, as attribute "switch.oem.short" gives it
    const char* makerKey; // message key of the maker's name; null when the title is the product's alone
};

/// Row of the brand named (any letter case); the row "unknown" for all other names.
const MirlBrand& MirlPath_brandNamed(const char* oemName);

/// Brand of this Switch.
const MirlBrand& MirlPath_brand();

/// "resources/themes/<brand>/", relative to the document root.
const std::string& MirlPath_themeBase();

/// Folder in which the service leaves settings files: MIRL_SETTINGS_DIR of the environment, else "/data/settings/".
std::string MirlPath_settingsBase();

/// "/data/settings/icons/<brand>/".
const std::string& MirlPath_iconsBase();

/// File of target icon n: "…/icon07.png" for 7.
std::string MirlPath_iconFileName(unsigned int n);
