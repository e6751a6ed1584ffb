// Makes the text of one log line. Internal to the event log.
#ifndef PLATFORM_CLIENT_EVENTLOGLINE_H
#define PLATFORM_CLIENT_EVENTLOGLINE_H

#include "platform/client/EventLogFormat.h"

#include <span>
#include <string>

namespace eventlog {

/// The message: at most kEventLogMessageMax bytes. Rules: EventLog_write.
std::string format(std::string_view format, std::span<const EventLogArg> args);

/// The same text fit for one line: control characters and bytes that are not UTF-8 become \xHH, cut at
/// kEventLogMessageMax bytes between characters.
std::string escape(std::string_view text);

} // namespace eventlog

#endif
