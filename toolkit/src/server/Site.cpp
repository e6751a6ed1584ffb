#include "server/Site.h"

namespace Wt::Impl {

const EntryPoint* Site::entryAt(const std::string& path) const {
    for (const EntryPoint& entry : entries)
        if (path == entry.path || path == entry.path + "/") return &entry;
    return nullptr;
}

} // namespace Wt::Impl
