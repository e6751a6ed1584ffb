#include "platform/client/EventLog.h"

#include "platform/client/EventLogLine.h"
#include "platform/client/EventLogSink.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <sys/time.h>
#include <syslog.h>
#include <unistd.h>

namespace {

struct Level {
    const char* name;
    int priority;
};
constexpr Level kLevels[] = {
    {"error", LOG_ERR}, {"warning", LOG_WARNING}, {"notice", LOG_NOTICE}, {"debug", LOG_DEBUG}};
constexpr int kLevelCount = static_cast<int>(std::size(kLevels));

/// Facilities 0 to 7 of the log are the local ones of syslog.
constexpr int kSyslogFacility[] = {LOG_LOCAL0, LOG_LOCAL1, LOG_LOCAL2, LOG_LOCAL3,
                                   LOG_LOCAL4, LOG_LOCAL5, LOG_LOCAL6, LOG_LOCAL7};

std::atomic<EventLogSink> sSink{nullptr};

int highestLevel() {
    static const int level = [] {
        const char* text = std::getenv("EVENTLOG_LEVEL");
        const int wanted = text ? std::atoi(text) : 0;
        return wanted >= 1 && wanted <= kLevelCount ? wanted : kLevelCount;
    }();
    return level;
}

/// UTC with milliseconds, as in RFC 3339.
std::string timeNow() {
    timeval now{};
    ::gettimeofday(&now, nullptr);
    tm utc{};
    ::gmtime_r(&now.tv_sec, &utc);
    char text[48];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", utc.tm_year + 1900,
                  utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                  static_cast<int>(now.tv_usec / 1000));
    return text;
}

/// One call for one line, so that lines of several threads do not mix. What cannot be written is lost: the
/// log never holds its process up or ends it.
void writeToTerminal(const Level& level, int facility, const std::string& text) {
    std::string line = timeNow() + ' ' + level.name + ' ' + std::to_string(facility) + ' ' + text + '\n';
    while (::write(STDERR_FILENO, line.data(), line.size()) < 0 && errno == EINTR) {
    }
}

} // namespace

void EventLog_init(const char* argv0) {
    static std::string sName; // syslog keeps the pointer
    const char* slash = argv0 ? std::strrchr(argv0, '/') : nullptr;
    sName = slash ? slash + 1 : argv0 ? argv0 : "";
    ::openlog(sName.c_str(), LOG_PID | LOG_NDELAY, LOG_LOCAL7);
}

void EventLog_setSink(EventLogSink sink) {
    sSink = sink;
}

void EventLog_writeArgs(int level, int facility, const char* function, std::string_view format,
                        const EventLogArg* args, std::size_t count) {
    if (level > highestLevel()) return;
    const int saved = errno;
    const Level& row = kLevels[std::clamp(level, 1, kLevelCount) - 1];
    const std::string message = eventlog::escape(eventlog::format(format, {args, count}));
    const std::string name = eventlog::escape(function ? function : "");
    if (const EventLogSink sink = sSink) {
        sink(level, facility, name, message);
    } else {
        ::syslog(row.priority | kSyslogFacility[std::clamp(facility, 0, 7)], "%s: %s", name.c_str(),
                 message.c_str());
        writeToTerminal(row, facility, name + ": " + message);
    }
    errno = saved;
}
