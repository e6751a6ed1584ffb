#include "platform/client/EventLog.h"
#include "platform/client/EventLogLine.h"
#include "tests/platform/support/LogCapture.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <unistd.h>

namespace {

template <class... Args>
std::string formatted(const std::string& format, const Args&... args) {
    const std::vector<EventLogArg> list = {EventLogArg(args)...};
    return eventlog::format(format, list);
}

template <class... Args>
void expectLikePrintf(const char* format, const Args&... args) {
    char expected[512];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
    std::snprintf(expected, sizeof expected, format, args...);
#pragma GCC diagnostic pop
    EXPECT_EQ(formatted(format, args...), expected) << format;
}

TEST(EventLogFormat, WellFormedFormatsReadAsPrintfDoes) {
    expectLikePrintf("no conversion");
    expectLikePrintf("%d|%5d|%-5d|%05d|%+d|%i", 1, -2, 3, -4, 5, std::numeric_limits<int>::min());
    expectLikePrintf("%u|%u|%x|%#X|%o", 1u, -1, -1, 255u, 8);
    expectLikePrintf("%d", 4294967295u);
    expectLikePrintf("%x|%u|%d|%d", short{-1}, static_cast<unsigned char>(200), static_cast<signed char>(-3),
                     true);
    expectLikePrintf("%ld|%lu|%lld|%zu", -5L, 5UL, std::numeric_limits<long long>::min(), sizeof(int));
    expectLikePrintf("%s|%10s|%-10s|%.2s|", "text", "text", "text", "text");
    expectLikePrintf("%.1f|%8.3f|%e|%g|%G", 2.25, -3.14159, 1e300, 1e-10, 0.5);
    expectLikePrintf("%c%c|%3c", 'a', 'b', 'c');
    expectLikePrintf("%p", static_cast<const void*>("x"));
    expectLikePrintf("%*d|%-*d|%.*f|%*s", 6, 42, 6, 42, 2, 3.14159, -6, "ab");
    expectLikePrintf("100%%|%d%%", 5);
}

TEST(EventLogFormat, OddFormatsAreHarmless) {
    const struct {
        std::string format;
        std::string expected;
    } noArguments[] = {
        {"50% of %s, %d and %n", "50% of %s, %d and %n"},
        {"%", "%"},
        {"%%%", "%%"},
        {"%s%s%s%s%s%s%s%s", "%s%s%s%s%s%s%s%s"},
        {"%99999999999999999999d", "%99999999999999999999d"},
        {"%*.*f", "%*.*f"},
        {"%ls %1$s %Q", "%ls %1$s %Q"},
        {"", ""},
    };
    for (const auto& row : noArguments) EXPECT_EQ(formatted(row.format), row.expected);

    EXPECT_EQ(formatted("%d and %d", 1), "1 and %d");
    EXPECT_EQ(formatted("%*d %d", 7), "%*d %d") << "an incomplete conversion takes no argument from the next";
    EXPECT_EQ(formatted("%n %d", 7), "%n 7");
    EXPECT_EQ(formatted("%s %d %f %x", 5, "text", "more", 1.5), "5 text more 1.5")
        << "arguments in their own form";
    EXPECT_EQ(formatted("%s", static_cast<const char*>(nullptr)), "(null)");
    EXPECT_EQ(formatted("%d", 1, 2, 3), "1");
    EXPECT_EQ(formatted("%.3s", std::string_view("abcdef").substr(0, 2)), "ab");
    EXPECT_EQ(formatted("%900000000d", 1).size(), kEventLogMessageMax);
    EXPECT_EQ(formatted("%s%s", std::string(5000, 'a'), std::string(5000, 'b')),
              std::string(kEventLogMessageMax, 'a'));
}

TEST(EventLogFormat, OneMessageIsOneHarmlessLine) {
    const struct {
        const char* text;
        const char* line;
    } rows[] = {
        {"plain B\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x98\x80",
         "plain B\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x98\x80"},
        {"two\nlines\r\t\x1b[31m\x7f", "two\\x0Alines\\x0D\\x09\\x1B[31m\\x7F"},
        {"C1 \xC2\x9B end", "C1 \\xC2\\x9B end"},
        {"\xFF\xC0\x80\xED\xA0\x80\xF4\x90\x80\x80\xE2\x82",
         "\\xFF\\xC0\\x80\\xED\\xA0\\x80\\xF4\\x90\\x80\\x80\\xE2\\x82"},
    };
    for (const auto& row : rows) EXPECT_EQ(eventlog::escape(row.text), row.line);
    std::string euros = "x";
    while (euros.size() < kEventLogMessageMax + 10) euros += "\xE2\x82\xAC";
    const std::string cut = eventlog::escape(euros);
    EXPECT_LE(cut.size(), kEventLogMessageMax);
    EXPECT_EQ(cut.size() % 3, 1u) << "cut between characters";
}

TEST(EventLog, AMessageTextMayBeTheFormat) {
    const LogCapture log;
    const std::string text = "Value not unique: 100%s %n.";
    EventLog_write(1, 7, "logZeqErrors", text);
    EventLog_write(1, 7, "logZeqErrors", text.c_str());
    char buffer[128] = "%d %d %d";
    EventLog_write(3, 7, "main", buffer);
    EventLog_write(2, 7, "main", "%s=%u", std::string("errno"), 7u);
    const auto lines = log.lines();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[0].message, text);
    EXPECT_EQ(lines[1].message, text);
    EXPECT_EQ(lines[2].message, "%d %d %d");
    EXPECT_EQ(lines[3].message, "errno=7");
    EXPECT_EQ(lines[0].function, "logZeqErrors");
    EXPECT_EQ(lines[0].level, 1);
}

TEST(EventLog, TheTerminalGetsWholeLinesOfSeveralThreads) {
    char name[] = "/tmp/eventlog-XXXXXX";
    const int file = ::mkstemp(name);
    const int saved = ::dup(STDERR_FILENO);
    ::dup2(file, STDERR_FILENO);
    errno = 77;
    EventLog_write(2, 7, "first\nfunction", "odd %s", "thing\n");
    const int errnoAfter = errno;
    EventLog_write(99, 99, nullptr, "levels are cut to the known ones");
    EventLog_write(-1, -1, "f", "low");
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([thread] {
            for (int i = 0; i < 50; ++i)
                EventLog_write(3, 7, "worker", "%d says %s", thread, std::string(100, 'y'));
        });
    }
    for (std::thread& thread : threads) thread.join();
    ::dup2(saved, STDERR_FILENO);
    ::close(saved);
    EXPECT_EQ(errnoAfter, 77);

    ::lseek(file, 0, SEEK_SET);
    FILE* lines = ::fdopen(file, "r");
    char line[8192];
    int whole = 0;
    ASSERT_TRUE(std::fgets(line, sizeof line, lines));
    EXPECT_NE(std::string(line).find("Z warning 7 first\\x0Afunction: odd thing\\x0A\n"), std::string::npos)
        << line;
    while (std::fgets(line, sizeof line, lines)) {
        whole += std::string(line).ends_with("says " + std::string(100, 'y') + "\n");
    }
    EXPECT_EQ(whole, 200);
    std::fclose(lines);
    ::unlink(name);
}

} // namespace
