#include "platform/ctl/CommandLine.h"

#include "platform/client/Connection.h"
#include "platform/ctl/Failure.h"

#include <algorithm>
#include <charconv>
#include <sstream>

namespace zeqctl {

namespace {

constexpr unsigned kTimeoutMaxMs = 3'600'000;
constexpr unsigned kCountMax = 1'000'000;
constexpr double kIntervalMinSeconds = 0.01;
constexpr double kIntervalMaxSeconds = 3600;

template <class Number>
Number toNumber(const std::string& option, const std::string& text, Number least, Number most) {
    Number number{};
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = parsed.ec == std::errc() && parsed.ptr == text.data() + text.size();
    if (whole && number >= least && number <= most) return number;
    std::ostringstream range;
    range << option << " takes a number from " << least << " to " << most;
    throw Failure(Exit::Usage, range.str());
}

void setOption(Options& options, const std::string& name, const std::string& value) {
    if (name == "--json") options.json = true;
    if (name == "--help" || name == "-h") options.help = true;
    if (name == "--version") options.version = true;
    if (name == "--socket") options.socket = value;
    if (name == "--timeout")
        options.timeout = std::chrono::milliseconds(toNumber(name, value, 1u, kTimeoutMaxMs));
    if (name == "--count") options.count = toNumber(name, value, 1u, kCountMax);
    if (name == "--interval") {
        const std::chrono::duration<double> seconds(
            toNumber(name, value, kIntervalMinSeconds, kIntervalMaxSeconds));
        options.interval = std::chrono::round<std::chrono::milliseconds>(seconds);
    }
}

const OptionRow& rowOf(const std::string& name) {
    for (const OptionRow& row : kOptions) {
        if (name == row.name) return row;
    }
    std::string known;
    for (const OptionRow& row : kOptions) known += std::string(known.empty() ? "" : ", ") + row.name;
    throw Failure(Exit::Usage, "option '" + name + "' unknown; use " + known);
}

} // namespace

const std::vector<OptionRow> kOptions = {
    {"--json", nullptr, "print JSON"},
    {"--socket", "PATH", "socket of the service (default: $ZEQ_SOCKET, else /run/zeq/zeq.sock)"},
    {"--timeout", "MS", "longest wait for an answer in milliseconds (default: $ZEQ_TIMEOUT_MS, else 5000)"},
    {"--interval", "SECONDS", "watch: time between two looks (default: 1)"},
    {"--count", "N", "watch: end after N changes"},
    {"--help", nullptr, "print help; after a command, help on that command"},
    {"-h", nullptr, "the same"},
    {"--version", nullptr, "print the version"},
};

Options parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    options.socket = zeq::socketPath();
    options.timeout = zeq::answerDeadline();
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        if (word == "--") {
            options.words.insert(options.words.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                 arguments.end());
            break;
        }
        if (!word.starts_with('-') || word == "-") {
            options.words.push_back(word);
            continue;
        }
        const std::size_t equals = word.find('=');
        const std::string name = word.substr(0, equals);
        const OptionRow& row = rowOf(name);
        if (!row.value && equals != word.npos) throw Failure(Exit::Usage, name + " takes no value");
        if (row.value && equals == word.npos && i + 1 == arguments.size()) {
            throw Failure(Exit::Usage, name + " needs a value: " + row.value);
        }
        setOption(options, name,
                  !row.value            ? ""
                  : equals == word.npos ? arguments[++i]
                                        : word.substr(equals + 1));
    }
    return options;
}

} // namespace zeqctl
