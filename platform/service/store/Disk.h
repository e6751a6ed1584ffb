// Where the store's changes are kept, so that tests can let it fail.
#pragma once

#include "platform/service/catalogue/ResourceRow.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zeqd {

/// One record as it is to be on disk; without a body it is to be gone.
struct DiskChange {
    Res resource;
    std::uint32_t index;
    std::optional<std::string> body;
};

/// Everything, for a database that begins anew.
struct DiskContent {
    std::vector<DiskChange> records;
    std::vector<std::pair<Res, std::uint32_t>> retired; ///< highest index that was ever given
};

class Disk {
public:
    virtual ~Disk() = default;
    /// Keeps all changes or none. Answers only when they survive a power cut.
    /// Empty on success, else what failed.
    virtual std::string write(const std::vector<DiskChange>& changes) = 0;
    /// The last write failed since the database is damaged.
    virtual bool damaged() const { return false; }
    /// Sets the damaged database aside and writes a new one. Answers what failed.
    virtual std::string renew(const DiskContent&) { return "not possible"; }
};

} // namespace zeqd
