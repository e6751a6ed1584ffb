// What a new database begins with.
#pragma once

#include "platform/service/store/Store.h"

#include <vector>

namespace zeqd {

struct InstallationPlan {
    enum class Kind { Demo, Empty } kind = Kind::Demo;
    std::string dataDir;       ///< folder of the demo's JSON files
    std::string adminPassword; ///< plain text; the demo's administrator gets it
    std::uint32_t devices = 0; ///< of a large installation; 0 = just the demo
    std::uint32_t users = 0;   ///< the same
    std::int64_t now = 0;      ///< seconds since 1970 UTC
};

/// All records of a new installation. Throws std::runtime_error that names file, record and fault.
std::vector<RecordPtr> makeInstallation(const InstallationPlan& plan);

/// The records of one data file: {"resource":[{"index":…,…},…],…}. Times below zero are seconds before `now`.
std::vector<RecordPtr> readDataFile(const std::string& path, std::int64_t now);

/// Factory new: this Switch and one administrator without a password.
std::vector<RecordPtr> factoryInstallation();

/// Adds Receivers, Transmitters and Switches until there are so many Receivers and Transmitters.
void growInstallation(std::vector<RecordPtr>& records, std::uint32_t devices);

/// Adds accounts, most of them operators, until there are so many. They have no password yet.
void growAccounts(std::vector<RecordPtr>& records, std::uint32_t users);

} // namespace zeqd
