// Command line of zeqd.
#pragma once

#include <cstdint>
#include <string>

namespace zeqd {

struct Options {
    enum class Action { Serve, Help, Version, DescribeResources, MakeFirmware } action = Action::Serve;
    std::string socket;
    std::string data = "/var/lib/zeq";
    std::string demoDir;
    std::string settingsDir = "/data/settings";
    std::string adminPassword;
    std::string uploadDir = "/tmp";
    bool demo = false;
    bool living = false;
    bool empty = false;
    bool simControl = false;
    bool localServers = false;
    std::uint32_t devices = 0;
    std::uint32_t users = 0;
    std::uint32_t clients = 0;
    std::uint32_t timeFactor = 1;
    std::uint32_t syslogPort = 514;
    std::string firmwareType; ///< of --make-firmware
    std::string firmwareVersion;
    std::string firmwareFile;
};

/// Throws std::runtime_error with a line for the user.
Options readOptions(int count, char** arguments);

std::string helpText();

/// Ends the program with the code that asks its supervisor to start it again.
constexpr int kExitRestart = 42;
constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

} // namespace zeqd
