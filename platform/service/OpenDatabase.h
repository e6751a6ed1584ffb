// The database at the start of the service.
#pragma once

#include "platform/service/demo/Installation.h"
#include "platform/service/store/SqliteDisk.h"
#include "platform/service/store/Store.h"

namespace zeqd {

/// Opens the database and loads it; makes one by the plan when there is none. Of a damaged one what can be read goes on in
/// a new one, with an event that tells of it; who gets in is not more than before. Throws std::runtime_error.
std::unique_ptr<SqliteDisk> openDatabase(const std::string& path, Store& store, const InstallationPlan& plan,
                                         const std::function<void(const std::string&)>& log);

} // namespace zeqd
