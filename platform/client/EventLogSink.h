// Where log lines go; for tests that look at what was logged.
#ifndef PLATFORM_CLIENT_EVENTLOGSINK_H
#define PLATFORM_CLIENT_EVENTLOGSINK_H

#include <string>

/// Gets one finished message. Called from any thread.
using EventLogSink = void (*)(int level, int facility, const std::string& function,
                              const std::string& message);

/// Sends all further lines to `sink` instead of syslog and the terminal; null puts those back.
void EventLog_setSink(EventLogSink sink);

#endif
