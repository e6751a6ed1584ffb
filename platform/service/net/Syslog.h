// Events to a syslog server: RFC 5424 messages over UDP (RFC 5426), one datagram each. Nothing is answered and
// nothing waits: what cannot be sent at once is lost, as syslog over UDP always may be.
#pragma once

#include "platform/service/store/EventLine.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zeqd {

constexpr std::uint16_t kSyslogPort = 514;

/// The datagram. Facility 23 (local 7). `host`: EID of this Switch. Control characters of the message become
/// blanks: a line end would be another message to some servers.
std::string syslogMessage(const EventLine& event, std::string_view host);

class SyslogSender {
public:
    /// `log` is told once when sending begins to fail.
    SyslogSender(std::uint16_t port, std::function<void(const std::string&)> log);
    ~SyslogSender();
    SyslogSender(const SyslogSender&) = delete;
    SyslogSender& operator=(const SyslogSender&) = delete;

    /// `server`: an IPv4 or IPv6 address; empty: nobody listens.
    void send(const std::string& server, const std::string& message);

private:
    bool sendTo(const std::string& server, const std::string& message);
    int socketOf(int family);

    std::uint16_t mPort;
    std::function<void(const std::string&)> mLog;
    int mSocket4 = -1;
    int mSocket6 = -1;
    bool mFailing = false;
};

} // namespace zeqd
