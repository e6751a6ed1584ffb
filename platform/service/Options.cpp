#include "platform/service/Options.h"

#include "platform/service/net/SocketLimits.h"

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string_view>
#include <variant>

namespace zeqd {

namespace {

constexpr const char* kDefaultSocket = "/run/zeq/zeq.sock";
constexpr const char* kInstalledData = "/usr/share/zeq/demo";
constexpr const char* kDemoPassword = "control-room-1";

using Target =
    std::variant<std::string Options::*, std::uint32_t Options::*, bool Options::*, Options::Action>;

struct OptionRow {
    std::string_view name;
    std::string_view argument; ///< empty = takes none
    Target target;
    std::string_view help;
};

const OptionRow kOptions[] = {
    {"--socket", "PATH", &Options::socket, "Unix socket to serve; else ZEQ_SOCKET, else /run/zeq/zeq.sock"},
    {"--data", "DIR", &Options::data, "folder of the database, made when it is not there (/var/lib/zeq)"},
    {"--demo", "", &Options::demo,
     "a new database begins with the demo installation (the default); also --sim-control, --local-servers"},
    {"--empty", "", &Options::empty,
     "a new database begins factory new: one administrator without a password"},
    {"--demo-dir", "DIR", &Options::demoDir, "folder of the demo's data files; else ZEQD_DEMO_DIR"},
    {"--living", "", &Options::living,
     "simulated operators log in at Receivers, connect and leave by themselves"},
    {"--devices", "N", &Options::devices, "a new demo is grown to N Receivers and Transmitters"},
    {"--users", "N", &Options::users, "a new demo is grown to N users"},
    {"--admin-password", "TEXT", &Options::adminPassword,
     "of the demo's administrator; else ZEQD_ADMIN_PASSWORD, which other users cannot see; "
     "else control-room-1"},
    {"--clients", "N", &Options::clients, "most clients at a time (1024)"},
    {"--settings-dir", "DIR", &Options::settingsDir, "folder for settings files (/data/settings)"},
    {"--upload-dir", "DIR", &Options::uploadDir,
     "firmware files of this machine come from there alone (/tmp)"},
    {"--sim-control", "", &Options::simControl, "clients may steer the simulated devices (simControl)"},
    {"--local-servers", "", &Options::localServers,
     "firmware servers may be on this machine (loopback) or its own link (link-local)"},
    {"--syslog-port", "N", &Options::syslogPort, "UDP port of the syslog server of the settings (514)"},
    {"--time-factor", "N", &Options::timeFactor, "simulated time runs N times as fast (1)"},
    {"--describe-resources", "", Options::Action::DescribeResources,
     "print the page of all resources and end"},
    {"--make-firmware", "TYPE VERSION FILE", Options::Action::MakeFirmware,
     "write a firmware file for rx, tx or swx, for trying updates, and end"},
    {"--help", "", Options::Action::Help, "print this and end"},
    {"--version", "", Options::Action::Version, "print the version and end"},
};

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + "; see zeqd --help");
}

std::string environment(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value && *value ? value : otherwise;
}

std::uint32_t readNumber(std::string_view name, std::string_view text) {
    std::uint32_t value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc{} || result.ptr != text.data() + text.size())
        fail(std::string(name) + " takes a number, not '" + std::string(text) + "'");
    return value;
}

const OptionRow& find(std::string_view name) {
    for (const OptionRow& row : kOptions)
        if (row.name == name) return row;
    fail("unknown option '" + std::string(name) + "'");
}

/// The demo's files: installed, or beside the sources that the program was built from.
std::string findDemo() {
    std::error_code ignored;
    const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ignored);
    for (std::filesystem::path dir = self.parent_path(); dir.has_relative_path(); dir = dir.parent_path())
        if (std::filesystem::exists(dir / "platform/service/data/users.json", ignored))
            return dir / "platform/service/data";
    return kInstalledData;
}

} // namespace

Options readOptions(int count, char** arguments) {
    Options options;
    int at = 1;
    const auto take = [&](std::string_view name) -> std::string {
        if (at >= count) fail(std::string(name) + " needs an argument");
        return arguments[at++];
    };
    while (at < count) {
        std::string name = arguments[at++];
        std::string given;
        const std::size_t equals = name.find('=');
        const bool joined = equals != std::string::npos;
        if (joined) given = name.substr(equals + 1), name.resize(equals);
        const OptionRow& row = find(name);
        if (const auto* text = std::get_if<std::string Options::*>(&row.target))
            options.** text = joined ? given : take(name);
        else if (const auto* number = std::get_if<std::uint32_t Options::*>(&row.target))
            options.** number = readNumber(name, joined ? given : take(name));
        else if (joined)
            fail(name + " takes no value after '='");
        else if (const auto* flag = std::get_if<bool Options::*>(&row.target))
            options.** flag = true;
        else
            options.action = std::get<Options::Action>(row.target);
        if (options.action == Options::Action::MakeFirmware && options.firmwareFile.empty()) {
            options.firmwareType = take(name);
            options.firmwareVersion = take(name);
            options.firmwareFile = take(name);
        }
    }
    if (options.socket.empty()) options.socket = environment("ZEQ_SOCKET", kDefaultSocket);
    if (options.demoDir.empty()) options.demoDir = environment("ZEQD_DEMO_DIR", "");
    if (options.demoDir.empty()) options.demoDir = findDemo();
    if (options.adminPassword.empty())
        options.adminPassword = environment("ZEQD_ADMIN_PASSWORD", kDemoPassword);
    if (options.clients == 0) options.clients = kDefaultClients;
    return options;
}

std::string helpText() {
    std::string out = "zeqd: the internal database service of a Switch.\n\nUsage: zeqd [options]\n\n";
    for (const OptionRow& row : kOptions) {
        constexpr std::size_t kColumn = 28;
        std::string left = "  " + std::string(row.name) + " " + std::string(row.argument);
        if (left.size() >= kColumn) left += "\n";
        left.resize(left.ends_with('\n') ? left.size() + kColumn : kColumn, ' ');
        out += left + std::string(row.help) + "\n";
    }
    out +=
        "\nIt ends with 0 when it is told to (SIGTERM, SIGINT), with 42 when the simulated Switch reboots\n"
        "and it is to be started again, with 1 when something failed, with 2 when the command line is\n"
        "wrong.\n";
    return out;
}

} // namespace zeqd
