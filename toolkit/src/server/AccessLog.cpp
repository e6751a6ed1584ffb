#include "server/AccessLog.h"

#include <Wt/WServer.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace Wt::Impl {

AccessLog::AccessLog(const std::string& file) {
    if (file == "-") return;
    if (file.empty()) {
        mFile = STDOUT_FILENO;
        return;
    }
    mFile = ::open(file.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0640);
    if (mFile < 0) throw WServer::Exception("--accesslog: '" + file + "': " + std::strerror(errno));
    mOwned = true;
}

AccessLog::~AccessLog() {
    if (mOwned) ::close(mFile);
}

void AccessLog::write(std::string_view address, std::string_view method, std::string_view target, int status,
                      std::uint64_t bytes) {
    if (mFile < 0) return;
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::array<char, 40> stamp{};
    std::strftime(stamp.data(), stamp.size(), "%d/%b/%Y:%H:%M:%S +0000", &utc);
    std::string line(address);
    line.append(" - - [")
        .append(stamp.data())
        .append("] \"")
        .append(method)
        .append(" ")
        .append(loggedTarget(target));
    line.append("\" ").append(std::to_string(status)).append(" ").append(std::to_string(bytes)).append("\n");
    // One write a line: lines of several threads and of log rotation by copy do not mix.
    [[maybe_unused]] const auto written = ::write(mFile, line.data(), line.size());
}

std::string loggedTarget(std::string_view target) {
    std::string text(target.substr(0, target.find('?')));
    constexpr std::string_view kResource = "/wt-resource/";
    if (const std::size_t at = text.find(kResource); at != text.npos) {
        const std::size_t key = text.find('/', at + kResource.size());
        if (key != text.npos) text.erase(key + 1).append("...");
    }
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x21 || c == 0x7f || c == '"' || c == '\\') c = '?';
    return text;
}

} // namespace Wt::Impl
