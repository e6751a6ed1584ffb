#include "shell/MirlPath.h"

#include "db/MirlUtil.h"
#include "platform/client/Attributes.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

/// The last row stands for every brand not listed.
constexpr std::array<MirlBrand, 4> kBrands = {{
    {"brenmor", "[RSnnn]Ferrand"},
    {"calvex", "[RSnnn]Ferrand"},
    {"dunmere", "[RSnnn]Dunmere"},
    {"unknown", nullptr},
}};

} // namespace

const MirlBrand& MirlPath_brandNamed(const char* oemName) {
    std::string name = oemName;
    MirlUtil_toLowercase(name.data());
    for (const MirlBrand& brand : kBrands) {
        if (name == brand.name) return brand;
    }
    return kBrands.back();
}

const MirlBrand& MirlPath_brand() {
    static const MirlBrand& brand = MirlPath_brandNamed(Attributes_getString("switch.oem.short", "unknown"));
    return brand;
}

const std::string& MirlPath_themeBase() {
    static const std::string path = std::string("resources/themes/") + MirlPath_brand().name + "/";
    return path;
}

std::string MirlPath_settingsBase() {
    const char* folder = std::getenv("MIRL_SETTINGS_DIR");
    return std::string(folder && *folder ? folder : "/data/settings") + "/";
}

const std::string& MirlPath_iconsBase() {
    static const std::string path = std::string("/data/settings/icons/") + MirlPath_brand().name + "/";
    return path;
}

std::string MirlPath_iconFileName(unsigned int n) {
    char name[sizeof "icon4294967295.png"];
    std::snprintf(name, sizeof name, "icon%2.2u.png", n);
    return MirlPath_iconsBase() + name;
}
