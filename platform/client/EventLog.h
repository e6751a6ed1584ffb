// Event log: syslog and the terminal (standard error), one line a message.
//
// Levels: 1 error, an operation failed; 2 warning, something odd and work goes on; 3 notice, a session event
// worth keeping; 4 debug trace. The environment's EVENTLOG_LEVEL (1 to 4) leaves out what is above it.
// Control characters and broken UTF-8 in a message are written as \xHH, so that one message is one line and
// cannot drive a terminal.
#ifndef PLATFORM_CLIENT_EVENTLOG_H
#define PLATFORM_CLIENT_EVENTLOG_H

#include "platform/client/EventLogFormat.h"

/// Once, first thing in the process. The program's name in the log is the last part of `argv0`.
extern "C" void EventLog_init(const char* argv0);

/// Writes one line, with `count` arguments. Safe for every format and every arguments: see EventLog_write.
void EventLog_writeArgs(int level, int facility, const char* function, std::string_view format,
                        const EventLogArg* args, std::size_t count);

/// Writes one line: printf format and arguments (numbers, texts, pointers); `function` is the calling
/// function's name. A literal format that does not fit its arguments does not compile. A format made at run
/// time is never undefined behaviour: a conversion without an argument, or unknown, is printed as it stands;
/// an argument of another type than its conversion expects is printed in its own form; %n never writes. From
/// any thread; leaves errno as it was.
template <class... Args>
void EventLog_write(int level, int facility, const char* function,
                    std::type_identity_t<EventLogFormat<std::decay_t<Args>...>> format, const Args&... args) {
    if constexpr (sizeof...(Args) == 0) {
        EventLog_writeArgs(level, facility, function, format.text(), nullptr, 0);
    } else {
        const EventLogArg list[] = {EventLogArg(args)...};
        EventLog_writeArgs(level, facility, function, format.text(), list, sizeof...(Args));
    }
}

#endif
