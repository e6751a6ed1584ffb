#include "platform/service/net/Syslog.h"

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace zeqd {

namespace {

constexpr int kFacility = 23;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF"; // says that what follows is UTF-8

/// RFC 5424, table 2.
constexpr struct {
    std::string_view severity;
    int number;
} kSeverities[] = {{"error", 3}, {"warning", 4}, {"info", 6}};
constexpr int kNotice = 5; // of a severity that the table lacks

int numberOf(std::string_view severity) {
    for (const auto& row : kSeverities)
        if (row.severity == severity) return row.number;
    return kNotice;
}

std::string timestamp(std::int64_t date) {
    const auto seconds = static_cast<std::time_t>(date);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[sizeof "2009-03-05T02:04:09Z"];
    return std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc) ? text : "-";
}

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

} // namespace

std::string syslogMessage(const EventLine& event, std::string_view host) {
    std::string out =
        "<" + std::to_string(kFacility * 8 + numberOf(event.severity)) + ">1 " + timestamp(event.date);
    out.append(" ").append(host.empty() ? "-" : host).append(" zeqd - - - ").append(kUtf8Mark);
    if (!event.origin.empty()) out.append(event.origin).append(": ");
    for (const char c : event.message) out += isControl(c) ? ' ' : c;
    return out;
}

SyslogSender::SyslogSender(std::uint16_t port, std::function<void(const std::string&)> log)
    : mPort(port), mLog(std::move(log)) {}

SyslogSender::~SyslogSender() {
    for (const int socket : {mSocket4, mSocket6})
        if (socket >= 0) close(socket);
}

void SyslogSender::send(const std::string& server, const std::string& message) {
    if (server.empty()) return;
    const bool sent = sendTo(server, message);
    if (!sent && !mFailing) mLog("error: no syslog to " + server + ": " + std::strerror(errno));
    mFailing = !sent;
}

bool SyslogSender::sendTo(const std::string& server, const std::string& message) {
    sockaddr_in four{.sin_family = AF_INET, .sin_port = htons(mPort), .sin_addr = {}, .sin_zero = {}};
    sockaddr_in6 six{};
    six.sin6_family = AF_INET6;
    six.sin6_port = htons(mPort);
    const sockaddr* address = nullptr;
    socklen_t size = 0;
    if (inet_pton(AF_INET, server.c_str(), &four.sin_addr) == 1)
        address = reinterpret_cast<const sockaddr*>(&four), size = sizeof four;
    else if (inet_pton(AF_INET6, server.c_str(), &six.sin6_addr) == 1)
        address = reinterpret_cast<const sockaddr*>(&six), size = sizeof six;
    else
        return errno = EINVAL, false;
    const int socket = socketOf(address->sa_family);
    return socket >= 0 &&
           sendto(socket, message.data(), message.size(), MSG_DONTWAIT | MSG_NOSIGNAL, address, size) >= 0;
}

int SyslogSender::socketOf(int family) {
    int& kept = family == AF_INET ? mSocket4 : mSocket6;
    if (kept < 0) kept = socket(family, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    return kept;
}

} // namespace zeqd
