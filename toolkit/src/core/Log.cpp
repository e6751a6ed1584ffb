#include "core/Log.h"

#include "core/OrderedRows.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <string>

#include <unistd.h>

namespace Wt::Impl {

void log(LogLevel level, std::string_view scope, std::string_view text) noexcept try {
    constexpr RowOf<LogLevel, const char*> kNames[] = {
        {LogLevel::Error, "error"}, {LogLevel::Warning, "warning"}, {LogLevel::Info, "info"}};
    static_assert(coversInOrder(kNames, LogLevel::Info));
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    gmtime_r(&now, &utc);
    std::array<char, 32> stamp{};
    std::strftime(stamp.data(), stamp.size(), "%Y-%m-%dT%H:%M:%SZ", &utc);
    std::string line(stamp.data());
    line.append(" wt ").append(kNames[static_cast<std::size_t>(level)].is);
    line.append(" [").append(scope).append("] ").append(text);
    for (char& c : line)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = '?';
    line.push_back('\n');
    // One write, so that the lines of several threads do not mix; a full or closed terminal loses the line.
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, line.data(), line.size());
} catch (...) {
}

} // namespace Wt::Impl
