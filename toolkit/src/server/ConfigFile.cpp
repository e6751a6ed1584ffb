#include "server/ConfigFile.h"

#include "server/ServerConfig.h"

#include <Wt/WServer.h>

#include <pugixml.hpp>

namespace Wt::Impl {

void readConfigFile(const std::string& file, ServerConfig& config) {
    pugi::xml_document document;
    if (const auto parsed = document.load_file(file.c_str()); !parsed)
        throw WServer::Exception("--config: can't read '" + file + "': " + parsed.description());
    const pugi::xml_node setting = document.child("server")
                                       .child("application-settings")
                                       .child("session-management")
                                       .child("reload-is-new-session");
    if (!setting) return;
    const std::string value = setting.text().get();
    if (value != "true" && value != "false")
        throw WServer::Exception("--config: reload-is-new-session is '" + value + "'; use true or false");
    config.reloadIsNewSession = value == "true";
}

} // namespace Wt::Impl
