#include "tests/platform/support/LogCapture.h"

#include "platform/client/EventLogSink.h"

#include <mutex>

namespace {

std::mutex sMutex;
std::vector<LogCapture::Line> sLines;

void take(int level, int, const std::string& function, const std::string& message) {
    const std::lock_guard lock(sMutex);
    sLines.push_back({level, function, message});
}

} // namespace

LogCapture::LogCapture() {
    sLines.clear();
    EventLog_setSink(take);
}

LogCapture::~LogCapture() {
    EventLog_setSink(nullptr);
}

std::vector<LogCapture::Line> LogCapture::lines() const {
    const std::lock_guard lock(sMutex);
    return sLines;
}

std::vector<std::string> LogCapture::messages(int level) const {
    std::vector<std::string> out;
    for (const Line& line : lines()) {
        if (line.level == level) out.push_back(line.message);
    }
    return out;
}
