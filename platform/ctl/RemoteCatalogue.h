// What the service says about one resource, asked once.
#ifndef PLATFORM_CTL_REMOTECATALOGUE_H
#define PLATFORM_CTL_REMOTECATALOGUE_H

#include "platform/ctl/RemoteService.h"

namespace zeqctl {

struct KeyInfo {
    std::string key; ///< nested keys with slashes: network/ipv4/ipAddress
    std::string type;
    std::string access; ///< read, write or read/write
    std::string limit;  ///< the words a choice takes, or what limits another value
    std::string fallback;
    std::string note;
    std::vector<std::string> values; ///< that a choice takes
};

struct ResourceInfo {
    std::string name;
    std::string note;
    std::string shape; ///< table, singleton, action or computed
    std::vector<std::string> methods;
    std::vector<KeyInfo> keys;

    /// Type of a key, "" when the resource has none of this name.
    std::string typeOf(const std::string& key) const;
};

/// "a, b, c"
std::string joined(const std::vector<std::string>& words);

/// All resources in the catalogue's order. Throws as RemoteService does.
std::vector<ResourceInfo> readCatalogue(RemoteService& service);
/// One resource; a path such as swx/network/ipv4 gives the keys below it. Throws as RemoteService does.
ResourceInfo readCatalogue(RemoteService& service, const std::string& resource);

} // namespace zeqctl

#endif
