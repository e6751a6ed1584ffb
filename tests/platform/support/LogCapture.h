#ifndef TESTS_PLATFORM_SUPPORT_LOGCAPTURE_H
#define TESTS_PLATFORM_SUPPORT_LOGCAPTURE_H

#include <string>
#include <vector>

/// Takes the event log's lines instead of syslog and the terminal while it lives. One at a time.
class LogCapture {
public:
    struct Line {
        int level;
        std::string function;
        std::string message;
    };

    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    /// All lines so far, or those of one level.
    std::vector<Line> lines() const;
    std::vector<std::string> messages(int level) const;
};

#endif
